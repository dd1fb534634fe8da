// The game that was left with Exit, in "lastgame.inf" in the current directory.
//
// Ten lines, each one whole decimal number: seats in play, seat to play, round, 1 for a game against the
// computer, the totals of the four seats, 1 for sound, 1 for the backdrop.
#pragma once

#include <string>
#include <string_view>

#include "game/options.h"
#include "game/state.h"

namespace game {

struct SavedGame {
  GameOptions options;
  GameState state;
};

/// The text of the file, each line ended by CR LF.
std::string savedGameText(const SavedGame& game);

/// Reads the text of a file into `game`, each value the moment it is read; so what was read before a bad line
/// stays. False when the text does not hold ten good lines: whole numbers of at most 16 bits, blanks around
/// them allowed, but for the last line, which is 1 or something else. Lines end in LF or CR LF.
bool readSavedGame(std::string_view text, SavedGame& game);

/// Whether a game with these values can be played on.
bool isPlayable(const SavedGame& game);

/// Replaces the file. What could not be written is not reported.
void save(const SavedGame& game);

/// Reads the file into `game` as `readSavedGame` does. False when it cannot be read, or when what it holds is
/// no game that could be played on.
bool restore(SavedGame& game);

}  // namespace game
