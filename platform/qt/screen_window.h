// The window of one screen.
#pragma once

#include <QMargins>
#include <QWidget>
#include <vector>

#include "platform/qt/views.h"
#include "platform/screen.h"

namespace platform::qt {

class QtDesktop;

class ScreenWindow final : public QWidget {
 public:
  ScreenWindow(QtDesktop& desktop, Screen& screen);

  /// Draws what differs from what was last drawn.
  void refresh();

  /// Shows the window, or brings it to the front. It stays in front of `backdrop` from then on, unless it is
  /// that itself; null when there is none.
  void present(ScreenWindow* backdrop);

  /// Takes the window off the display; from here on it knows no screen.
  void dismiss();

  QtDesktop& desktop() const { return desktop_; }
  Screen* screen() const { return screen_; }  ///< Null once dismissed.
  const std::vector<View*>& views() const { return views_; }
  View* view(const Widget& widget) const;

 private:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

  void place();
  void showToolTip(const QPoint& at);
  void raiseInDrawingOrder();

  QtDesktop& desktop_;
  Screen* screen_;            // Null once dismissed.
  std::vector<View*> views_;  // Owned by Qt.
  std::vector<const Widget*> drawnOrder_;
  QMargins frame_;  // As it was when the window was last placed.
};

}  // namespace platform::qt
