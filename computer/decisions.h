// Which die the computer sets aside next. There is nothing random in it: the same faces always give the same
// choice.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "game/icons.h"
#include "game/state.h"

namespace computer {

/// Which icons the computer has committed a die to in the current turn.
using IconsTaken = std::array<bool, game::icons.size()>;

struct Choice {
  std::size_t die;
  game::IconKind icon;

  friend bool operator==(const Choice&, const Choice&) = default;
};

/// The die to set aside and the icon it goes to, or nothing when none is worth keeping.
///
/// A 6, a 5 and a 4 go to SHIP, CAPTAIN and MATE at once, in that order of preference. CREW and CARGO are
/// filled after those, with dice still at home that are good enough for this throw: above 4 after the first,
/// above 3 after the second, any after the third. Among equals the leftmost die goes.
std::optional<Choice> decide(const std::array<int, game::diceCount>& faces,
                             const std::array<bool, game::diceCount>& atHome, const IconsTaken& iconTaken,
                             int throwCount);

}  // namespace computer
