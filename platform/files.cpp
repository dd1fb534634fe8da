#include "platform/files.h"

#include <algorithm>
#include <fstream>

namespace platform {

namespace fs = std::filesystem;

namespace {

// `tolower` would follow the player's language: in Turkish "I" and "i" are different letters.
fs::path::value_type foldCase(fs::path::value_type letter) {
  return 'A' <= letter && letter <= 'Z' ? static_cast<fs::path::value_type>(letter - 'A' + 'a') : letter;
}

bool equalButForCase(const fs::path& a, const fs::path& b) {
  return std::ranges::equal(a.native(), b.native(), {}, foldCase, foldCase);
}

fs::path entryNamed(const fs::path& folder, const fs::path& name) {
  std::error_code failure;
  if (fs::exists(folder / name, failure)) return folder / name;
  fs::directory_iterator entries(folder.empty() ? "." : folder, failure);
  for (; entries != fs::directory_iterator(); entries.increment(failure)) {
    const fs::path entry = entries->path().filename();
    if (equalButForCase(entry, name)) return folder / entry;
  }
  return folder / name;
}

}  // namespace

fs::path fileNamed(std::string_view name) {
  std::string separated(name);
  std::replace(separated.begin(), separated.end(), '\\', '/');
  fs::path found;
  for (const fs::path& part : fs::path(separated)) found = entryNamed(found, part);
  return found;
}

std::optional<std::string> readFile(std::string_view name, std::size_t most) {
  const fs::path path = fileNamed(name);
  std::error_code failure;
  if (!fs::is_regular_file(path, failure)) return std::nullopt;
  std::string contents(std::min<std::uintmax_t>(fs::file_size(path, failure), most), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(contents.data(), std::ssize(contents));
  if (!file.is_open() || file.bad()) return std::nullopt;
  contents.resize(static_cast<std::size_t>(file.gcount()));
  return contents;
}

void writeFile(std::string_view name, std::string_view contents) {
  const fs::path path = fileNamed(name);
  std::error_code failure;
  if (fs::exists(path, failure) && !fs::is_regular_file(path, failure)) return;
  std::ofstream(path, std::ios::binary) << contents;
}

}  // namespace platform
