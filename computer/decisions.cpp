#include "computer/decisions.h"

#include <algorithm>

namespace computer {

using game::IconKind;

std::optional<Choice> decide(const std::array<int, game::diceCount>& faces,
                             const std::array<bool, game::diceCount>& atHome, const IconsTaken& iconTaken,
                             int throwCount) {
  const auto taken = [&](IconKind icon) { return iconTaken[static_cast<std::size_t>(icon)]; };
  for (const IconKind icon : {IconKind::Ship, IconKind::Captain, IconKind::Mate}) {
    const int wanted = game::icons[static_cast<std::size_t>(icon)].takes - '0';
    const auto found = std::find(faces.begin(), faces.end(), wanted);
    if (taken(icon) || found == faces.end()) continue;
    return Choice{static_cast<std::size_t>(found - faces.begin()), icon};
  }
  const bool ready = taken(IconKind::Ship) && taken(IconKind::Captain) && taken(IconKind::Mate);
  if (!ready || taken(IconKind::Cargo)) return std::nullopt;
  const int lowestKept = throwCount == 1 ? 5 : throwCount == 2 ? 4 : 0;
  for (std::size_t die = 0; die < game::diceCount; ++die) {
    if (!atHome[die] || faces[die] < lowestKept) continue;
    return Choice{die, taken(IconKind::Crew) ? IconKind::Cargo : IconKind::Crew};
  }
  return std::nullopt;
}

}  // namespace computer
