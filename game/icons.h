// The five icons of the board, from its top to its bottom.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace game {

enum class IconKind : std::size_t { Ship, Captain, Mate, Crew, Cargo };

struct Icon {
  std::string_view name;
  std::string_view picture;
  char takes;              ///< The only face it takes; `anyFace` where every one will do.
  std::size_t valueLabel;  ///< The member of `Label3` to its right that says so, where there is one.
};

inline constexpr char anyFace = '*';

inline constexpr std::array<Icon, 5> icons{{
    {"SHIP", R"(Images\wheel2.jpg)", '6', 9},
    {"CAPTAIN", R"(Images\sextant.jpg)", '5', 8},
    {"MATE", R"(Images\compass.jpg)", '4', 7},
    {"CREW", R"(Images\anchor.jpg)", anyFace, 0},
    {"CARGO", R"(Images\cargo2.jpg)", anyFace, 0},
}};

}  // namespace game
