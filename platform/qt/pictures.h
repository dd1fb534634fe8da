// Pictures from files.
#pragma once

#include <QImage>
#include <QPixmap>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/widget.h"

namespace platform::qt {

class Pictures {
 public:
  /// Reads a picture, anew if it was read before. Its own size in twips; nothing when it cannot be read.
  std::optional<Size> load(std::string_view path);

  /// A picture that was loaded, at exactly this many pixels; a null pixmap when it was not.
  const QPixmap& scaledTo(std::string_view path, QSize pixels);

 private:
  struct Picture {
    QImage image;
    QPixmap scaled;  // As it was last drawn: a picture stands in one box, so one size is enough.
  };

  std::map<std::string, Picture, std::less<>> pictures_;
};

}  // namespace platform::qt
