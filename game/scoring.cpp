// The end of a turn: whether it is over, and what it scores.

#include "game/board.h"
#include "game/sound.h"

namespace game {

void tolvane::checkturnover() {
  board_.turnOver = false;
  int turnScore = 0;
  std::string& total = Label5[static_cast<std::size_t>(state_.currentSeat)].text;
  if (board_.throwCount == throwsPerTurn) {
    // A 6, a 5 and a 4: what the icons ask for that do not take every face.
    std::string shown;
    for (const platform::Widget& die : Label4) shown += die.text;
    std::string missing;
    for (const Icon& icon : icons) {
      if (icon.takes == anyFace || shown.find(icon.takes) != std::string::npos) continue;
      missing += std::string(missing.empty() ? "No " : ", no ") + icon.takes;
    }
    if (!missing.empty()) {
      say(missing + ".");
      board_.turnOver = true;
      play(sounds::splash);
    }
  }
  if (board_.diceOnIcons == static_cast<int>(diceCount)) {
    board_.turnOver = true;
    turnScore = points();
    total = std::to_string(numberShown(total) + turnScore);
    if (turnScore == 0) play(sounds::splash);
    if (turnScore < 7) play(sounds::divingBoard);
    if (turnScore >= 7 && turnScore <= 9) play(sounds::dive);
    if (turnScore == 10) play(sounds::fourBells);
    if (turnScore > 10) play(sounds::aooga);
  }
  if (!board_.turnOver) return;
  say("Turn over. " + seatToPlay() + " scored " + std::to_string(turnScore) + ". " + seatToPlay() + " has " +
      total + ".");
  abandonTurn();
  Label9.text = std::to_string(turnScore) + " SCORED";
  Label9.visible = true;
  Label1.text = "TURN OVER";
  Label8.visible = false;
  board_.throwCount = 0;
  state_.currentSeat = (state_.currentSeat + 1) % options_.playerCount;
  Timer1.enable();
}

}  // namespace game
