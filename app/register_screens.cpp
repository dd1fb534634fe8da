#include "app/register_screens.h"

#include <memory>

#include "computer/board.h"
#include "game/board.h"
#include "screens/backdrop.h"
#include "screens/options.h"
#include "screens/rules_pages.h"
#include "screens/shell/screen_names.h"
#include "screens/title.h"

namespace app {

namespace {

template <typename Screen, typename... Given>
void add(platform::Desktop& desktop, std::string_view name, Given&... given) {
  desktop.registerScreen(name, [&] { return std::make_unique<Screen>(desktop, given...); });
}

}  // namespace

void registerScreens(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state) {
  add<screens::Titlefrm>(desktop, shell::titleScreen, options, state);
  add<screens::Startplay2>(desktop, shell::optionsScreen, options);
  add<screens::Grey>(desktop, shell::backdrop);
  add<game::tolvane>(desktop, shell::board, options, state);
  add<computer::tolvanecomputer>(desktop, shell::computerBoard, options, state);
  add<screens::Wembickrules>(desktop, shell::rulesPage1, options);
  add<screens::Wembickrules2>(desktop, shell::rulesPage2, options);
  add<screens::Wembickrules2b>(desktop, shell::rulesPage3, options);
}

}  // namespace app
