// What lies on the table. A die lies where it is on the screen and nothing else keeps its place, so play,
// score, keys and words all ask here.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "game/icons.h"
#include "game/state.h"
#include "platform/screen.h"

namespace game {

/// The whole number shown as `text`, as the dice and the totals are read; 0 where there is none.
int numberShown(std::string_view text);

/// A screen with five dice, the homes they start from, and the icons they are set aside on.
class Table : public platform::Screen {
 protected:
  using Screen::Screen;

  /// Whether a die lies in the row: exactly on its own home.
  bool atHome(std::size_t die) const;

  /// The icon that a die, or whatever else, lies exactly on.
  std::optional<std::size_t> iconUnder(const platform::Widget& piece) const;

  /// The faces of the dice on an icon, of the dice in the row: "3, 4, 6"; empty where none lies.
  std::string facesOn(std::size_t icon) const;
  std::string facesInRow() const;

  /// The sum of the dice on CREW and CARGO, the icons that take any face.
  int points() const;

  void moveTo(std::size_t die, const platform::Widget& place);

  std::array<platform::Widget, icons.size()> Image1;  // The icons.
  std::array<platform::Widget, diceCount> Label4;     // The dice.
  std::array<platform::Widget, diceCount> Label7;     // The home markers of the dice.
};

}  // namespace game
