#include "game/setting_aside.h"

#include <cmath>

#include "game/board.h"
#include "game/sound.h"

namespace game {

bool samePlace(const platform::Appearance& a, const platform::Appearance& b) {
  return a.left == b.left && a.top == b.top;
}

bool catches(const platform::Appearance& target, const platform::Appearance& die) {
  return target.left - target.width / 2 < die.left && die.left < target.left + target.width &&
         target.top - target.height / 2 < die.top && die.top < target.top + target.height;
}

bool accepts(IconKind icon, std::string_view face, bool occupied) {
  const char wanted = icons[static_cast<std::size_t>(icon)].takes;
  return wanted == anyFace ? !occupied : face == std::string_view(&wanted, 1);
}

void tolvane::dieMouseMove(std::size_t die, const platform::MouseEvent& mouse) {
  if (!personToPlay()) return;
  platform::Widget& dragged = Label4[die];
  bringToFront(dragged);
  if (!whyNoDieMoves().empty() || mouse.buttons != 1) return;
  dragged.left += mouse.x - dragged.width / 2;
  dragged.top += mouse.y - dragged.height / 2;
  // A die lies on an icon only once it is dropped there; until then it is not in its own way.
  if (iconUnder(dragged)) dragged.left = std::nextafter(dragged.left, 0.F);
}

void tolvane::dieMouseUp(std::size_t die) {
  if (!whyNoDieMoves().empty()) return;
  platform::Widget& dropped = Label4[die];
  if (pickedUp_ == die) pickedUp_.reset();
  const bool wasSetAside = std::erase(setAside_, die) > 0;
  bool refused = false;
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    if (!catches(Image1[icon], dropped)) continue;
    play(sounds::key);
    const bool taken = accepts(static_cast<IconKind>(icon), dropped.text, !facesOn(icon).empty());
    moveTo(die, taken ? Image1[icon] : Label7[die]);
    if (taken) continue;
    refused = true;
    sayRefusal(icon);
  }
  for (const platform::Widget& marker : Label7) {
    if (!catches(marker, dropped)) continue;
    moveTo(die, Label7[die]);
    play(sounds::click);
  }
  if (!refused || wasSetAside) sayWhereItLies(die);
  board_.diceOnIcons = 0;
  for (const platform::Widget& each : Label4) board_.diceOnIcons += iconUnder(each) ? 1 : 0;
  if (iconUnder(dropped)) setAside_.push_back(die);
  if (board_.diceOnIcons == static_cast<int>(diceCount)) checkturnover();
}

}  // namespace game
