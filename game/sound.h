// The sounds of a game, where the players want any.
#pragma once

#include <string_view>

#include "game/options.h"
#include "platform/desktop.h"
#include "screens/shell/playwav.h"

namespace game {

/// Plays one of `shell::sounds` if `soundOn` is 1; it cuts off the sound still playing.
inline void play(platform::Desktop& desktop, const GameOptions& options, std::string_view sound) {
  if (options.soundOn == 1) shell::playwav(desktop, sound);
}

}  // namespace game
