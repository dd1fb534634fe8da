#include "platform/files.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

bool equalButForCase(const std::string& a, const std::string& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

fs::path entryNamed(const fs::path& folder, const std::string& name) {
  std::error_code failure;
  if (fs::exists(folder / name, failure)) return folder / name;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    if (equalButForCase(entry->path().filename().string(), name)) return folder / entry->path().filename();
  }
  return folder / name;
}

}  // namespace

fs::path fileNamed(std::string_view name) {
  std::string separated(name);
  std::replace(separated.begin(), separated.end(), '\\', '/');
  fs::path found;
  for (const fs::path& part : fs::path(separated)) found = entryNamed(found, part.string());
  return found;
}

}  // namespace platform
