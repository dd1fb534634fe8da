// What the program's screens call one another: each shows the others by name and includes none of them.
#pragma once

#include <string_view>

namespace shell {

inline constexpr std::string_view titleScreen = "Titlefrm";
inline constexpr std::string_view optionsScreen = "Startplay2";
inline constexpr std::string_view backdrop = "Grey";
inline constexpr std::string_view board = "tolvane";
inline constexpr std::string_view computerBoard = "tolvanecomputer";
inline constexpr std::string_view rulesPage1 = "Wembickrules";
inline constexpr std::string_view rulesPage2 = "Wembickrules2";
inline constexpr std::string_view rulesPage3 = "Wembickrules2b";

}  // namespace shell
