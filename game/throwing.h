// How a die's face is drawn.
#pragma once

#include <string>

#include "platform/chance.h"

namespace game {

/// A whole number from 0 to `count` - 1.
int drawBelow(platform::Chance& chance, int count);

/// The face, 1 to 6, of a die that is thrown after showing `before` (0: nothing yet). It is drawn anew 0 to
/// 99 times over, as often as chance wants it; a die not drawn at all keeps its face, or shows 1 when it has
/// none.
int drawFace(platform::Chance& chance, int before);

/// A face as a rolling die shows it in passing.
std::string rollingFace(platform::Chance& chance);

}  // namespace game
