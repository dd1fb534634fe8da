#include "platform/qt/pictures.h"

#include <QByteArrayView>

#include "platform/files.h"

namespace platform::qt {

namespace {

constexpr float twipsPerMetre = 1440 / 0.0254F;
constexpr std::size_t largestFile = 16 << 20;

}  // namespace

std::optional<Size> Pictures::load(std::string_view path) {
  const auto file = readFile(path, largestFile);
  QImage image;
  if (file) image.loadFromData(QByteArrayView(*file), "jpg");
  if (image.isNull()) return std::nullopt;
  const Size own{
      static_cast<float>(image.width()) / static_cast<float>(image.dotsPerMeterX()) * twipsPerMetre,
      static_cast<float>(image.height()) / static_cast<float>(image.dotsPerMeterY()) * twipsPerMetre};
  pictures_.insert_or_assign(std::string(path), Picture{std::move(image), {}});
  return own;
}

const QPixmap& Pictures::scaledTo(std::string_view path, QSize pixels) {
  static const QPixmap none;
  const auto found = pictures_.find(path);
  if (found == pictures_.end()) return none;
  auto& [image, scaled] = found->second;
  if (scaled.size() != pixels) {
    scaled = QPixmap::fromImage(image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  return scaled;
}

}  // namespace platform::qt
