#include "platform/qt/pictures.h"

#include <QImageReader>

#include "platform/files.h"

namespace platform::qt {

namespace {

constexpr float twipsPerMetre = 1440 / 0.0254F;

}  // namespace

std::optional<Size> Pictures::ownSize(std::string_view path) {
  const QImage& found = image(path);
  if (found.isNull()) return std::nullopt;
  // Qt reports 96 dots per inch where a file states nothing.
  return Size{static_cast<float>(found.width()) / static_cast<float>(found.dotsPerMeterX()) * twipsPerMetre,
              static_cast<float>(found.height()) / static_cast<float>(found.dotsPerMeterY()) * twipsPerMetre};
}

QPixmap Pictures::scaledTo(std::string_view path, QSize pixels) {
  const QImage& found = image(path);
  if (found.isNull()) return {};
  return QPixmap::fromImage(found.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

const QImage& Pictures::image(std::string_view path) {
  const auto known = images_.find(path);
  if (known != images_.end()) return known->second;
  return images_.emplace(path, QImageReader(QString::fromStdString(fileNamed(path).string())).read())
      .first->second;
}

}  // namespace platform::qt
