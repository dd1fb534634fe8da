#include "game/setting_aside.h"

#include <algorithm>
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

void tolvane::moveTo(std::size_t die, const platform::Widget& place) {
  Label4[die].left = place.left;
  Label4[die].top = place.top;
}

bool tolvane::atHome(std::size_t die) const {
  return samePlace(Label4[die], Label7[die]);
}

bool tolvane::maySetAside(std::size_t die) const {
  return !board_.turnOver && !Timer1.enabled() && !Timer5.enabled() && !Timer8.enabled() &&
         !Label4[die].text.empty();
}

void tolvane::dieMouseMove(std::size_t die, const platform::MouseEvent& mouse) {
  if (!personToPlay()) return;
  platform::Widget& dragged = Label4[die];
  bringToFront(dragged);
  if (!maySetAside(die) || mouse.buttons != 1) return;
  dragged.left += mouse.x - dragged.width / 2;
  dragged.top += mouse.y - dragged.height / 2;
  // A die lies on an icon only once it is dropped there; until then it is not in its own way.
  if (iconUnder(dragged)) dragged.left = std::nextafter(dragged.left, 0.F);
}

void tolvane::dieMouseUp(std::size_t die) {
  if (!personToPlay() || !maySetAside(die)) return;
  platform::Widget& dropped = Label4[die];
  bool refused = false;
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    if (!catches(Image1[icon], dropped)) continue;
    play(sounds::key);
    const bool occupied = diceOn(Image1[icon]) > 0;
    const bool taken = accepts(static_cast<IconKind>(icon), dropped.text, occupied);
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
  if (!refused) sayWhereItLies(die);
  board_.diceOnIcons = 0;
  for (const platform::Widget& icon : Image1) board_.diceOnIcons += diceOn(icon);
  std::erase(setAside_, die);
  if (iconUnder(dropped)) setAside_.push_back(die);
  if (board_.diceOnIcons == static_cast<int>(diceCount)) checkturnover();
}

std::optional<std::size_t> tolvane::iconUnder(const platform::Widget& piece) const {
  const auto found = std::find_if(Image1.begin(), Image1.end(),
                                  [&piece](const platform::Widget& icon) { return samePlace(piece, icon); });
  return found == Image1.end() ? std::nullopt
                               : std::optional(static_cast<std::size_t>(found - Image1.begin()));
}

int tolvane::diceOn(const platform::Widget& icon) const {
  return static_cast<int>(std::count_if(
      Label4.begin(), Label4.end(), [&icon](const platform::Widget& die) { return samePlace(die, icon); }));
}

}  // namespace game
