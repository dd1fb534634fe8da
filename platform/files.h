// The game's file names on this system.
#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

/// The file that `name` ("images\start.jpg") stands for, relative to the current directory. Backslashes
/// separate folders, and a part of the name that does not exist as written stands for one that differs only
/// in case. Where there is no such file, the name as written, with this system's separators.
std::filesystem::path fileNamed(std::string_view name);

}  // namespace platform
