#include "platform/qt/pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <utility>

#include "platform/files.h"

namespace platform::qt {

namespace {

constexpr std::size_t largestFile = 16 << 20;
constexpr qint64 mostPixels = 32 << 20;

// JPEG is what the game has. Whatever else lies under such a name is not handed to a decoder that knows it: a
// drawing, for one, may refer to further files.
constexpr const char* format = "jpg";

/// Twips a pixel, across and down, by the header that such files begin with; at 96 dots an inch when it
/// states nothing.
Size ownScale(const std::string& file) {
  constexpr float twipsPerInch = 1440;
  constexpr float centimetresPerInch = 2.54F;
  constexpr std::size_t headerSize = 18;
  enum Unit { None, DotsPerInch, DotsPerCentimetre };
  const auto byte = [&file](std::size_t at) { return static_cast<unsigned char>(file[at]); };
  const auto scale = [&](std::size_t at) {
    constexpr float twipsAt96 = twipsPerInch / 96;
    if (file.size() < headerSize || file.compare(6, 5, "JFIF\0", 5) != 0) return twipsAt96;
    const auto dots = static_cast<float>(byte(at) * 256 + byte(at + 1));
    const int unit = byte(13);
    if (dots == 0 || (unit != DotsPerInch && unit != DotsPerCentimetre)) return twipsAt96;
    return twipsPerInch / (unit == DotsPerInch ? dots : dots * centimetresPerInch);
  };
  return {scale(14), scale(16)};
}

/// Whether a picture's data go on to their end: a decoder makes up what is missing. Within them 0xFF is
/// followed by 0 or announces a restart; anything else but the end is rubbish.
bool isWhole(std::string_view file) {
  const auto follows = [&file](std::size_t at) { return static_cast<unsigned char>(file[at + 1]); };
  std::size_t at = file.rfind("\xFF\xDA");  // Where the last data begin.
  while ((at = file.find('\xFF', at + 1)) < file.size() - 1) {
    constexpr unsigned char end = 0xD9;
    if (follows(at) == end) return true;
    const bool restart = (follows(at) & 0xF8) == 0xD0;
    if (follows(at) != 0 && follows(at) != 0xFF && !restart) return false;
  }
  return false;
}

/// A file being read as a picture.
class PictureFile {
 public:
  explicit PictureFile(std::string_view path)
      : contents_(readFile(path, largestFile).value_or("")),
        bytes_(QByteArray::fromRawData(contents_.data(), static_cast<qsizetype>(contents_.size()))),
        buffer_(&bytes_),
        reader_(&buffer_, format) {
    reader_.setAutoDetectImageFormat(false);
  }

  const std::string& contents() const { return contents_; }
  QImageReader& reader() { return reader_; }

 private:
  std::string contents_;
  QByteArray bytes_;
  QBuffer buffer_;
  QImageReader reader_;
};

QImage decode(const std::string& path, QSize pixels) {
  PictureFile file(path);
  file.reader().setScaledSize(pixels);
  return file.reader().read();
}

}  // namespace

std::optional<Size> Pictures::load(std::string_view path) {
  if (const auto old = pictures_.find(path); old != pictures_.end()) pictures_.erase(old);
  PictureFile file(path);
  if (!isWhole(file.contents())) return std::nullopt;
  const QSize own = file.reader().size();
  if (own.isEmpty() || qint64(own.width()) * own.height() > mostPixels) return std::nullopt;
  pictures_.try_emplace(std::string(path));
  const Size scale = ownScale(file.contents());
  return Size{static_cast<float>(own.width()) * scale.width, static_cast<float>(own.height()) * scale.height};
}

void Pictures::prepare(std::string_view path, QSize pixels) {
  const auto found = pictures_.find(path);
  if (found == pictures_.end() || found->second.pixels == pixels) return;
  found->second.pixels = pixels;
  found->second.decoding = std::async(decode, found->first, pixels);
}

const QPixmap& Pictures::scaledTo(std::string_view path, QSize pixels) {
  static const QPixmap none;
  prepare(path, pixels);
  const auto found = pictures_.find(path);
  if (found == pictures_.end()) return none;
  Picture& picture = found->second;
  if (picture.decoding.valid()) picture.shown = QPixmap::fromImage(picture.decoding.get());
  return picture.shown;
}

}  // namespace platform::qt
