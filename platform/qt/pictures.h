// Pictures from files, kept as long as the program runs.
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
  /// The own size of a picture in twips; nothing when it cannot be read.
  std::optional<Size> ownSize(std::string_view path);

  /// A picture at exactly this many pixels; a null pixmap when it cannot be read.
  const QPixmap& scaledTo(std::string_view path, QSize pixels);

 private:
  struct Picture {
    QImage image;
    QPixmap scaled;  // As it w: a picture stands in one box.
  };

  Picture& picture(std::string_view path);

  std::map<std::string, Picture, std::less<>> pictures_;
};

}  // namespace platform::qt
