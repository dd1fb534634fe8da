#include "computer/decisions.h"

#include <algorithm>

namespace computer {

using game::IconKind;

namespace {

constexpr std::size_t ship = 0;
constexpr std::size_t crew = 3;
constexpr std::size_t cargo = 4;

}  // namespace

std::optional<Choice> decide(const std::array<int, game::diceCount>& faces,
                             const std::array<bool, game::diceCount>& atHome, const IconsTaken& iconTaken,
                             int throwCount) {
  for (std::size_t icon = ship; icon < crew; ++icon) {
    const int wanted = game::icons[icon].takes - '0';
    const auto found = std::find(faces.begin(), faces.end(), wanted);
    if (iconTaken[icon] || found == faces.end()) continue;
    return Choice{static_cast<std::size_t>(found - faces.begin()), static_cast<IconKind>(icon)};
  }
  if (!iconTaken[0] || !iconTaken[1] || !iconTaken[2] || iconTaken[cargo]) return std::nullopt;
  const int lowestKept = throwCount == 1 ? 5 : throwCount == 2 ? 4 : 0;
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    if (!atHome[die] || faces[die] < lowestKept) continue;
    return Choice{die, iconTaken[crew] ? IconKind::Cargo : IconKind::Crew};
  }
  return std::nullopt;
}

}  // namespace computer
