// The numbers that stand on the board.
#pragma once

#include <string_view>

namespace game {

/// The whole number shown as `text`; 0 where there is none.
int numberShown(std::string_view text);

}  // namespace game
