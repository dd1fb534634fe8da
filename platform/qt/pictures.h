// Pictures from files.
#pragma once

#include <QImage>
#include <QPixmap>
#include <future>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/widget.h"

namespace platform::qt {

class Pictures {
 public:
  /// Looks a picture up, anew if it was loaded before. Its own size in twips; nothing when it is no JPEG
  /// file, a damaged one, or more than can sensibly be shown.
  std::optional<Size> load(std::string_view path);

  /// Starts to decode a picture that was loaded, so that it is there by the time its window is.
  void prepare(std::string_view path, QSize pixels);

  /// A picture that was loaded, at this many pixels; a null pixmap when there is none.
  const QPixmap& scaledTo(std::string_view path, QSize pixels);

 private:
  // Kept as it is shown alone: a picture stands in one box, so one size is enough.
  struct Picture {
    QSize pixels;
    std::future<QImage> decoding;
    QPixmap shown;
  };

  std::map<std::string, Picture, std::less<>> pictures_;
};

}  // namespace platform::qt
