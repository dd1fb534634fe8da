// The window that covers the display behind the program's others.
#pragma once

#include <QWidget>

#include "platform/screen.h"

namespace platform::qt {

class QtDesktop;

class Backdrop final : public QWidget {
 public:
  Backdrop(QtDesktop& desktop, const Screen& screen);

  /// Covers the display; the keyboard stays where it is.
  void cover();
  /// Goes, until it is to cover again.
  void uncover();

 private:
  void mousePressEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;

  QtDesktop& desktop_;
};

}  // namespace platform::qt
