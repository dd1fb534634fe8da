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

  /// Shows the window, or brings it to the front; it belongs to `owner` from then on.
  void present(ScreenWindow* owner);

  /// Stays in front of `owner` from now on; of none when that is null.
  void belongTo(ScreenWindow* owner);

  /// Null where there is none.
  ScreenWindow* owner() const { return owner_; }

  /// Covers the display, for `screen` from now on.
  void cover(Screen& screen);

  /// Hides a window that covers the display; from here on it knows no screen, until it covers it again.
  void uncover();

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
  void heedFrame();
  void showToolTip(const QPoint& at);
  void raiseInDrawingOrder();

  QtDesktop& desktop_;
  Screen* screen_;            // Null once dismissed.
  std::vector<View*> views_;  // Owned by Qt.
  std::vector<const Widget*> drawnOrder_;
  ScreenWindow* owner_ = nullptr;
  QMargins frame_;  // As it was thought to be when the window was last placed.
  bool frameIsSeen_ = false;
};

}  // namespace platform::qt
