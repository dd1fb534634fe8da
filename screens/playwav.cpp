#include "screens/playwav.h"

namespace screens {

void playwav(platform::Desktop& desktop, std::string_view path) {
  desktop.playSound(path);
}

}  // namespace screens
