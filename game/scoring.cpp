#include "game/scoring.h"

#include <algorithm>
#include <charconv>

#include "game/board.h"
#include "game/setting_aside.h"
#include "screens/playwav.h"

namespace game {

int numberShown(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool tolvane::anyDieShows(int face) const {
  return std::any_of(Label4.begin(), Label4.end(),
                     [face](const platform::Widget& die) { return numberShown(die.text) == face; });
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
    const bool sixFound = anyDieShows(6);
    const bool fiveFound = anyDieShows(5);
    const bool fourFound = anyDieShows(4);
    if (!sixFound || !fiveFound || !fourFound) {
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
