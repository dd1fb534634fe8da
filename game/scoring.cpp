// The end of a turn: whether it is over, and what it scores.

#include <algorithm>

#include "game/board.h"
#include "game/numbers.h"
#include "game/setting_aside.h"
#include "game/sound.h"

namespace game {

bool tolvane::anyDieShows(char face) const {
  return std::any_of(Label4.begin(), Label4.end(),
                     [face](const platform::Widget& die) { return die.text == std::string_view(&face, 1); });
}

int tolvane::pointsOn(IconKind icon) const {
  int points = 0;
  for (const platform::Widget& die : Label4) {
    if (samePlace(die, Image1[static_cast<std::size_t>(icon)])) points += numberShown(die.text);
  }
  return points;
}

void tolvane::checkturnover() {
  board_.turnOver = false;
  if (board_.throwCount == throwsPerTurn) {
    // A 6, a 5 and a 4: what the icons ask for that do not take every face.
    std::string missing;
    for (const Icon& icon : icons) {
      if (icon.takes == anyFace || anyDieShows(icon.takes)) continue;
      missing += std::string(missing.empty() ? "No " : ", no ") + icon.takes;
    }
    if (!missing.empty()) {
      say(missing + ".");
      board_.turnOver = true;
      showTurnScore(0);
      play(sounds::splash);
    }
  }
  if (board_.diceOnIcons == static_cast<int>(diceCount)) {
    board_.turnOver = true;
    const int turnScore = pointsOn(IconKind::Crew) + pointsOn(IconKind::Cargo);
    std::string& total = Label5[static_cast<std::size_t>(state_.currentSeat)].text;
    total = std::to_string(numberShown(total) + turnScore);
    showTurnScore(turnScore);
    if (turnScore == 0) play(sounds::splash);
    if (turnScore < 7) play(sounds::divingBoard);
    if (turnScore >= 7 && turnScore <= 9) play(sounds::dive);
    if (turnScore == 10) play(sounds::fourBells);
    if (turnScore > 10) play(sounds::aooga);
  }
  if (!board_.turnOver) return;
  sayTurnOver(numberShown(Label9.text));
  abandonTurn();
  Label1.text = "TURN OVER";
  Label8.visible = false;
  board_.throwCount = 0;
  state_.currentSeat = (state_.currentSeat + 1) % options_.playerCount;
  Timer1.enable();
}

void tolvane::showTurnScore(int points) {
  Label9.text = std::to_string(points) + " SCORED";
  Label9.visible = true;
}

}  // namespace game
