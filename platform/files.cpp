#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace platform {

namespace fs = std::filesystem;

namespace {

// `tolower` would follow the player's language: in Turkish "I" and "i" are different letters.
char foldCase(char letter) {
  return 'A' <= letter && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool equalButForCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return foldCase(x) == foldCase(y); });
}

// Reads the bare names: a folder may hold hundreds of thousands that are none of the game's.
fs::path entryNamed(const fs::path& folder, const std::string& name) {
  std::error_code failure;
  if (fs::exists(folder / name, failure)) return folder / name;
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.empty() ? "." : folder.c_str()), closedir);
  if (entries) {
    while (const dirent* entry = readdir(entries.get())) {
      if (equalButForCase(entry->d_name, name)) return folder / entry->d_name;
    }
  }
  return folder / name;
}

// An ordinary file that is open; closes it at the end of its life.
class OpenFile {
 public:
  // Without O_NONBLOCK, opening a pipe would wait for somebody at its other end.
  OpenFile(const fs::path& path, int flags)
      : file_(open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC, 0666)) {
    struct stat about {};
    if (file_ >= 0 && (fstat(file_, &about) != 0 || !S_ISREG(about.st_mode))) close(std::exchange(file_, -1));
  }
  ~OpenFile() {
    if (file_ >= 0) close(file_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool good() const { return file_ >= 0; }
  int number() const { return file_; }

 private:
  int file_;
};

// Repeats a call that a signal has interrupted.
template <typename Call>
ssize_t uninterrupted(Call call) {
  ssize_t result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

fs::path fileNamed(std::string_view name) {
  std::string separated(name);
  std::replace(separated.begin(), separated.end(), '\\', '/');
  fs::path found;
  for (const fs::path& part : fs::path(separated)) found = entryNamed(found, part.string());
  return found;
}

std::optional<std::string> readFile(std::string_view name, std::size_t most) {
  const OpenFile file(fileNamed(name), O_RDONLY);
  if (!file.good()) return std::nullopt;
  std::string contents;
  while (contents.size() < most) {
    constexpr std::size_t step = 1 << 16;
    const std::size_t before = contents.size();
    contents.resize(std::min(before + step, most));
    const ssize_t got = uninterrupted(
        [&] { return read(file.number(), contents.data() + before, contents.size() - before); });
    if (got < 0) return std::nullopt;
    contents.resize(before + static_cast<std::size_t>(got));
    if (got == 0) break;
  }
  return contents;
}

bool writeFile(std::string_view name, std::string_view contents) {
  const OpenFile file(fileNamed(name), O_WRONLY | O_CREAT);
  if (!file.good() || ftruncate(file.number(), 0) != 0) return false;
  // Where the player may write no more, that is a write that fails like any other, not the program's end.
  const auto before = std::signal(SIGXFSZ, SIG_IGN);
  bool written = true;
  while (written && !contents.empty()) {
    const ssize_t put = uninterrupted([&] { return write(file.number(), contents.data(), contents.size()); });
    written = put > 0;
    if (written) contents.remove_prefix(static_cast<std::size_t>(put));
  }
  std::signal(SIGXFSZ, before);
  return written;
}

}  // namespace platform
