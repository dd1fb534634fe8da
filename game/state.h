// The state of a game: what survives a board, and what a board keeps for itself. The running totals are not
// here, they stand in the score displays; nor is where each die lies, that is where the die is on the screen.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "screens/shell/look.h"

namespace game {

inline constexpr std::size_t diceCount = 5;
inline constexpr int throwsPerTurn = 3;
inline constexpr int roundsPerGame = 4;

/// A seat at the table, in turn order.
struct PlayerColour {
  std::string_view name;
  platform::Colour colour;
  std::string_view toPlay;  ///< The status line while it is this seat's turn.
  std::string_view hasWon;
};

inline constexpr std::array<PlayerColour, 4> seats{{
    {"Orange", shell::look::orange, "ORANGE TO PLAY", "ORANGE HAS WON!"},
    {"Magenta", shell::look::magenta, "MAGENTA TO PLAY", "MAGENTA HAS WON!"},
    {"Yellow", shell::look::yellow, "YELLOW TO PLAY", "YELLOW HAS WON!"},
    {"Green", shell::look::green, "GREEN TO PLAY", "GREEN HAS WON!"},
}};

/// What is carried from screen to screen.
struct GameState {
  int currentSeat = 0;             ///< The seat to play, from 0.
  int roundNumber = 0;             ///< 1 to 4; 0 between New Game and its hand-over; 5 when the game is over.
  std::array<int, 4> seatScore{};  ///< The totals a board opens with.
};

/// What lives and dies with a board.
struct BoardState {
  std::array<int, diceCount> dieValue{};  ///< The faces drawn, 1 to 6; 0 where none was yet.
  std::size_t diceSettled = 0;            ///< Dice of the current throw that already show their face.
  int throwCount = 0;                     ///< Throws made in the current turn.
  int diceOnIcons = 0;
  bool turnOver = false;
  std::size_t winnerSeat = 0;
  int flashCount = 0;         ///< Ticks of the winner's flashing, counted from 0 to 7 over and over.
  bool gameFinished = false;  ///< A game has ended on this board; from then on Exit saves nothing.
};

}  // namespace game
