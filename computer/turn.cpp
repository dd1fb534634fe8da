// The computer's turn: throw, wait for the faces, set one die aside after another, throw again.

#include "computer/board.h"
#include "game/sound.h"

namespace computer {

void tolvanecomputer::takeThrow() {
  throwdice();
  Timer3.disable();
  Timer4.enable();
}

void tolvanecomputer::decideNext() {
  // The first throw after a board has opened is revealed more slowly, so its last face can be due at this
  // very moment. The computer chooses among faces that the player has seen.
  while (Timer5.enabled()) reveal();
  if (!Timer4.enabled()) return;  // That was the third throw, and the end of the turn.
  Timer4.disable();

  std::array<int, game::diceCount> faces{};
  std::array<bool, game::diceCount> home{};
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    faces[die] = game::numberShown(Label4[die].text);
    home[die] = atHome(die);
  }
  if (const auto choice = decide(faces, home, iconTaken, board_.throwCount)) {
    movingDie = choice->die;
    targetIcon = static_cast<std::size_t>(choice->icon);
    iconTaken[targetIcon] = true;
    bringToFront(Label4[movingDie]);
    Timer6.enable();
  } else if (board_.throwCount < game::throwsPerTurn) {
    Timer3.enable();
  }
}

void tolvanecomputer::glide() {
  ++glideStep;
  // The further right a die starts, the longer its way.
  const int steps = 25 + 5 * static_cast<int>(movingDie);
  const platform::Widget& from = Label7[movingDie];
  const platform::Widget& to = Image1[targetIcon];
  const float way = static_cast<float>(glideStep) / static_cast<float>(steps);
  platform::Widget& die = Label4[movingDie];
  die.left = from.left + (to.left - from.left) * way;
  die.top = from.top + (to.top - from.top) * way;
  if (glideStep < steps) return;

  glideStep = 0;
  Timer6.disable();
  const bool last = targetIcon == static_cast<std::size_t>(game::IconKind::Cargo);
  if (!last) Timer4.enable();
  play(sounds::key);
  sayWhereItLies(movingDie);
  if (last) {
    board_.diceOnIcons = static_cast<int>(game::diceCount);
    checkturnover();
  }
}

}  // namespace computer
