#include "screens/shell/playwav.h"

namespace shell {

void playwav(platform::Desktop& desktop, std::string_view path) {
  desktop.playSound(path);
}

}  // namespace shell
