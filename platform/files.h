// The one door to files: the game's names on this system, and ordinary files only.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// The file that `name` ("images\start.jpg") stands for, relative to the current directory. Backslashes
/// separate folders, and a part of the name that does not exist as written stands for one that differs only
/// in the case of its ASCII letters, whatever the player's language. Where there is no such file, the name as
/// written, with this system's separators.
std::filesystem::path fileNamed(std::string_view name);

/// The first `most` bytes of the file that `name` stands for; nothing when it cannot be read or is no
/// ordinary file: a pipe of that name would hold the program up for ever.
std::optional<std::string> readFile(std::string_view name, std::size_t most);

/// Replaces what the file that `name` stands for holds, or makes it. What is there but no ordinary file is
/// left alone; what cannot be written is not reported.
void writeFile(std::string_view name, std::string_view contents);

}  // namespace platform
