// From one turn to the next: the table is cleared, the next seat presented, the rounds counted.

#include "game/board.h"

namespace game {

void tolvane::handover() {
  Timer1.setInterval(4000);
  Timer1.disable();
  board_.turnOver = false;
  Label9.visible = false;
  for (std::size_t die = 0; die < diceCount; ++die) {
    Label4[die].text.clear();
    moveTo(die, Label7[die]);
    board_.dieValue[die] = 0;
  }
  setAside_.clear();
  presentSeat();
  if (state_.currentSeat == 0) {
    ++state_.roundNumber;
    if (state_.roundNumber > roundsPerGame) return endofgame();
    showRound();
  }
  say(seatToPlay() + " to play. " + Label6.text + ".");
  Label2[throwButton].enabled = true;
  beginTurn();
}

void tolvane::presentSeat() {
  const PlayerColour& seat = seats[static_cast<std::size_t>(state_.currentSeat)];
  Label1.text = seat.toPlay;
  colourBoard(seat.colour);
  Label2[throwButton].textColour = seat.colour;
  Label2[throwButton].background = platform::black;
  Label8.textColour = seat.colour;
}

void tolvane::colourBoard(platform::Colour colour) {
  Label1.textColour = colour;
  Label6.textColour = colour;
  for (platform::Widget& die : Label4) die.background = colour;
}

void tolvane::showRound() {
  Label6.text = "ROUND " + std::to_string(state_.roundNumber) + " OF 4";
}

}  // namespace game
