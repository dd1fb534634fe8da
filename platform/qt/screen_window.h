// The window of one screen.
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "platform/qt/views.h"
#include "platform/screen.h"

namespace platform::qt {

class QtDesktop;

class ScreenWindow final : public QWidget {
 public:
  ScreenWindow(QtDesktop& desktop, Screen& screen);
  ~ScreenWindow() override;

  /// Draws what differs from what was last drawn.
  void refresh();

  /// Shows the window where its screen asks to stand, or brings it to the front; it belongs to `owner`, where
  /// there is one, from then on.
  void present(const QWidget* owner);

  /// Stays in front of `owner` from now on.
  void belongTo(const QWidget& owner);

  /// Comes back if it is minimised, in front of the others.
  void comeForward();

  QtDesktop& desktop() const { return desktop_; }
  Screen& screen() const { return screen_; }
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

  void inTurn(const std::function<void()>& handler);
  QRect placeIn(const QMargins& frame) const;
  void place(const QMargins& frame);
  void settle();
  void showToolTip(const QPoint& at);
  void raiseInDrawingOrder();

  QtDesktop& desktop_;
  Screen& screen_;
  std::vector<View*> views_;  // Owned by Qt.
  std::vector<const Widget*> drawnOrder_;
  std::optional<QPoint> grip_;  // Where a page's ground was pressed, by which it may be dragged.
  bool settled_ = false;
};

}  // namespace platform::qt
