#include "app/register_screens.h"

#include <memory>

#include "computer/board.h"
#include "game/board.h"
#include "screens/backdrop.h"
#include "screens/options.h"
#include "screens/rules_pages.h"
#include "screens/title.h"

namespace app {

namespace {

template <typename Screen, typename... Given>
void add(platform::Desktop& desktop, const char* name, Given&... given) {
  desktop.registerScreen(name, [&] { return std::make_unique<Screen>(desktop, given...); });
}

}  // namespace

void registerScreens(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state) {
  add<screens::Titlefrm>(desktop, "Titlefrm", options, state);
  add<screens::Startplay2>(desktop, "Startplay2", options);
  add<screens::Grey>(desktop, "Grey");
  add<game::tolvane>(desktop, "tolvane", options, state);
  add<computer::tolvanecomputer>(desktop, "tolvanecomputer", options, state);
  add<screens::Wembickrules>(desktop, "Wembickrules", options);
  add<screens::Wembickrules2>(desktop, "Wembickrules2", options);
  add<screens::Wembickrules2b>(desktop, "Wembickrules2b", options);
}

}  // namespace app
