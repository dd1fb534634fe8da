#include "platform/qt/pictures.h"

#include <QImageReader>

#include "platform/files.h"

namespace platform::qt {

namespace {

constexpr float twipsPerMetre = 1440 / 0.0254F;

}  // namespace

std::optional<Size> Pictures::ownSize(std::string_view path) {
  const QImage& image = picture(path).image;
  if (image.isNull()) return std::nullopt;
  // Qt reports 96 dots per inch where a file states nothing.
  return Size{static_cast<float>(image.width()) / static_cast<float>(image.dotsPerMeterX()) * twipsPerMetre,
              static_cast<float>(image.height()) / static_cast<float>(image.dotsPerMeterY()) * twipsPerMetre};
}

const QPixmap& Pictures::scaledTo(std::string_view path, QSize pixels) {
  auto& [image, scaled] = picture(path);
  if (scaled.size() != pixels && !image.isNull()) {
    scaled = QPixmap::fromImage(image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  }
  return scaled;
}

Pictures::Picture& Pictures::picture(std::string_view path) {
  const auto known = pictures_.find(path);
  if (known != pictures_.end()) return known->second;
  QImage read = QImageReader(QString::fromStdString(fileNamed(path).string())).read();
  return pictures_.emplace(path, Picture{std::move(read), {}}).first->second;
}

}  // namespace platform::qt
