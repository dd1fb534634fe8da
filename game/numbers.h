// Numbers as they stand on the board, where the totals and the dice are read from.
#pragma once

#include <charconv>
#include <string_view>

namespace game {

/// The whole number shown as `text`; 0 where there is none.
inline int numberShown(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace game
