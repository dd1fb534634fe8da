#include "game/throwing.h"

#include <algorithm>
#include <cmath>

#include "game/board.h"
#include "game/sound.h"

namespace game {

int drawBelow(platform::Chance& chance, int count) {
  // In whole numbers: the product of two fractions is rounded differently where the processor is more
  // precise, and a face is the same on every machine.
  constexpr int bits = 53;
  return static_cast<int>(std::llround(std::ldexp(chance.next(), bits)) * count >> bits);
}

int drawFace(platform::Chance& chance, int before) {
  int face = before;
  for (int draws = drawBelow(chance, 100); draws > 0; --draws) face = drawBelow(chance, 6) + 1;
  return std::max(face, 1);
}

std::string rollingFace(platform::Chance& chance) {
  return std::to_string(drawBelow(chance, 6) + 1);
}

void tolvane::throwdice() {
  Label10.visible = true;
  board_.diceOnIcons = 0;
  platform::Chance& chance = desktop().chance();
  chance.reseed();
  for (std::size_t die = 0; die < diceCount; ++die) {
    int& face = board_.dieValue[die];
    if (atHome(die)) {
      face = drawFace(chance, face);
    } else {
      chance.next();  // How often this die would have been drawn.
    }
  }
  board_.diceSettled = 0;
  Timer5.enable();
  Timer8.enable();
  ++board_.throwCount;
  Label8.text = "THROW " + std::to_string(board_.throwCount);
  Label8.visible = true;
  if (board_.throwCount == throwsPerTurn) Label2[throwButton].enabled = false;
  play(sounds::cupdice);
}

void tolvane::roll() {
  Timer8.setInterval(5);
  for (std::size_t die = board_.diceSettled; die < diceCount; ++die) {
    if (atHome(die)) Label4[die].text = rollingFace(desktop().chance());
  }
  if (board_.diceSettled == diceCount) Timer8.disable();
}

}  // namespace game
