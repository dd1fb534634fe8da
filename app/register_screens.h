// Every screen of the program, by the name the others call it.
#pragma once

#include "game/options.h"
#include "game/state.h"
#include "platform/desktop.h"

namespace app {

/// `options` and `state` live as long as the screens do.
void registerScreens(platform::Desktop& desktop, game::GameOptions& options, game::GameState& state);

}  // namespace app
