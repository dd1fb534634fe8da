#include "platform/qt/pictures.h"

#include <QImageReader>

#include "platform/files.h"

namespace platform::qt {

namespace {

constexpr float twipsPerMetre = 1440 / 0.0254F;

}  // namespace

std::optional<Size> Pictures::load(std::string_view path) {
  QImage image = QImageReader(QString::fromStdString(fileNamed(path).string())).read();
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
