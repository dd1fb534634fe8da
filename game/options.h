// The settings of the whole program.
#pragma once

namespace game {

/// Made on the options screen or read back from the saved game; they live for the whole run.
struct GameOptions {
  int playerCount = 0;       ///< Seats in play, 2 to 4; 2 in a game against the computer.
  int soundOn = 0;           ///< 1: sounds are played.
  int computerOpponent = 0;  ///< 1: one person against the computer.
  int restoreSavedGame = 0;  ///< 1 while a board is being opened to resume the saved game.
  int hideDesktop = 0;       ///< 1: the backdrop is shown.
};

}  // namespace game
