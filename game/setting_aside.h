// Which drops the icons and the home row take.
#pragma once

#include <string_view>

#include "game/icons.h"
#include "platform/widget.h"

namespace game {

/// Whether two widgets lie at exactly the same place. Dice are put on icons and homes by copying their place,
/// so this is how the game knows where they are.
bool samePlace(const platform::Appearance& a, const platform::Appearance& b);

/// Whether `target` catches a die let go where `die` lies: from half the target's size beyond its left and
/// top edge up to its right and bottom edge, as the die hangs by its middle from the pointer.
bool catches(const platform::Appearance& target, const platform::Appearance& die);

/// Whether an icon takes a die showing `face`; `occupied` when some die lies on it already.
bool accepts(IconKind icon, std::string_view face, bool occupied);

}  // namespace game
