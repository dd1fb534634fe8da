// The thrown dice come to rest one after another, from the left.

#include "game/board.h"

namespace game {

void tolvane::reveal() {
  Timer5.setInterval(250);
  const std::size_t die = board_.diceSettled;
  if (atHome(die)) Label4[die].text = std::to_string(board_.dieValue[die]);
  ++board_.diceSettled;
  if (board_.diceSettled < diceCount) return;
  Timer5.disable();
  const std::string row = facesInRow();
  say("Throw " + std::to_string(board_.throwCount) + (row.empty() ? "." : ": " + row + "."));
  if (board_.throwCount == throwsPerTurn) checkturnover();
}

}  // namespace game
