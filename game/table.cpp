#include "game/table.h"

#include <charconv>

#include "game/setting_aside.h"

namespace game {

int numberShown(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool Table::atHome(std::size_t die) const {
  return samePlace(Label4[die], Label7[die]);
}

std::optional<std::size_t> Table::iconUnder(const platform::Widget& piece) const {
  for (std::size_t icon = 0; icon < icons.size(); ++icon) {
    if (samePlace(piece, Image1[icon])) return icon;
  }
  return std::nullopt;
}

std::string Table::facesOn(std::size_t icon) const {
  std::string faces;
  for (const platform::Widget& die : Label4) {
    if (samePlace(die, Image1[icon])) faces += (faces.empty() ? "" : ", ") + die.text;
  }
  return faces;
}

std::string Table::facesInRow() const {
  std::string faces;
  for (std::size_t die = 0; die < diceCount; ++die) {
    if (atHome(die)) faces += (faces.empty() ? "" : ", ") + Label4[die].text;
  }
  return faces;
}

int Table::points() const {
  int sum = 0;
  for (const platform::Widget& die : Label4) {
    const auto icon = iconUnder(die);
    if (icon && icons[*icon].takes == anyFace) sum += numberShown(die.text);
  }
  return sum;
}

void Table::moveTo(std::size_t die, const platform::Widget& place) {
  Label4[die].left = place.left;
  Label4[die].top = place.top;
}

}  // namespace game
