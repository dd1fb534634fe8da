// The end of the game: the winner flashes to a klaxon, or the game is a draw.

#include <algorithm>

#include "game/board.h"
#include "game/sound.h"

namespace game {

void tolvane::endofgame() {
  board_.gameFinished = true;
  std::vector<int> finalScore(static_cast<std::size_t>(options_.playerCount));
  for (std::size_t seat = 0; seat < finalScore.size(); ++seat) {
    finalScore[seat] = numberShown(Label5[seat].text);
  }
  const auto best = std::max_element(finalScore.begin(), finalScore.end());  // The first of equals.
  board_.winnerSeat = static_cast<std::size_t>(best - finalScore.begin());
  const bool drawFlag = std::count(finalScore.begin(), finalScore.end(), *best) > 1;
  if (drawFlag) {
    Label1.text = "IT'S A DRAW";
    play(sounds::klaxon);
  } else {
    Label1.text = seats[board_.winnerSeat].hasWon;
    Timer2.enable();
  }
  Label6.text = "END OF GAME";
  say("End of game. " + (drawFlag ? Label1.text + "." : Label1.text) + " " + totalsTold());
  colourBoard(seats[board_.winnerSeat].colour);
  Label2[throwButton].background = seats[board_.winnerSeat].colour;
}

void tolvane::flashWinner() {
  board_.flashCount = (board_.flashCount + 1) % 8;
  Label1.textColour = board_.flashCount % 2 == 1 ? platform::white : seats[board_.winnerSeat].colour;
  if (board_.flashCount == 1) play(sounds::klaxon);
}

}  // namespace game
