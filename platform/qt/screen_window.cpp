#include "platform/qt/screen_window.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <algorithm>

#include "platform/qt/qt_desktop.h"

namespace platform::qt {

namespace {

// All but the backdrop are dialogs: window managers keep a dialog above the window it belongs to, so a click
// on the backdrop cannot bring it in front of the game.
Qt::WindowFlags flagsFor(Frame frame) {
  switch (frame) {
    case Frame::TitleBar:
      break;
    case Frame::ThinLine:
      return Qt::Dialog | Qt::FramelessWindowHint;
    case Frame::Backdrop:
      return Qt::Window | Qt::FramelessWindowHint;
  }
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
}

}  // namespace

ScreenWindow::ScreenWindow(QtDesktop& desktop, Screen& screen)
    : QWidget(nullptr, flagsFor(screen.frame)), desktop_(desktop), screen_(&screen) {
  setObjectName(QString::fromStdString(screen.name()));
  setWindowTitle(QString::fromStdString(screen.caption));
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (Widget* widget : screen.drawingOrder()) {
    views_.emplace_back(desktop, *widget, *this);
    drawnOrder_.push_back(widget);
  }
  setFocus();  // No button is chosen before the keyboard is used.
}

void ScreenWindow::refresh() {
  for (View& view : views_) view.refresh();
  raiseInDrawingOrder();
}

void ScreenWindow::raiseInDrawingOrder() {
  const auto order = screen_->drawingOrder();
  if (std::equal(order.begin(), order.end(), drawnOrder_.begin(), drawnOrder_.end())) return;
  // Those that still follow one another as before stay; the others go to the top, one after another.
  auto wanted = order.begin();
  for (const Widget* drawn : drawnOrder_) {
    if (wanted != order.end() && *wanted == drawn) ++wanted;
  }
  for (; wanted != order.end(); ++wanted) {
    const auto found = std::find_if(views_.begin(), views_.end(),
                                    [&](const View& view) { return &view.widget() == *wanted; });
    if (found != views_.end()) found->raise();
  }
  drawnOrder_.assign(order.begin(), order.end());
}

void ScreenWindow::present(ScreenWindow* backdrop) {
  if (this == backdrop) {
    setGeometry(QGuiApplication::primaryScreen()->geometry());  // Where no window manager does it.
    showFullScreen();
    return;
  }
  // The place comes first: only a window that is not yet there can be given one with its frame counted in.
  if (!isVisible()) place();
  winId();  // Makes the window system's window, so that it can belong to another.
  if (backdrop && windowHandle()->transientParent() != backdrop->windowHandle()) {
    hide();  // A window already on the display would not learn of it.
    windowHandle()->setTransientParent(backdrop->windowHandle());
  }
  show();
  raise();
  activateWindow();
}

void ScreenWindow::dismiss() {
  screen_ = nullptr;
  views_.clear();
  setEnabled(false);  // Whatever is still on its way to a button or a die comes to nothing.
  hide();
  deleteLater();
}

void ScreenWindow::place() {
  frame_ = screen_->frame == Frame::TitleBar ? desktop_.titleBarMargins() : QMargins();
  const Placement outer = outerPlacement(*screen_, extents(frame_));
  const QPoint display = QGuiApplication::primaryScreen()->geometry().topLeft();
  setFixedSize(pixels(outer.width) - frame_.left() - frame_.right(),
               pixels(outer.height) - frame_.top() - frame_.bottom());
  move(display + QPoint(pixels(outer.left), pixels(outer.top)));
}

bool ScreenWindow::event(QEvent* event) {
  // The window system tells what its frame is like only once a window is on the display.
  if (screen_ && screen_->frame == Frame::TitleBar && isVisible() && windowHandle()) {
    const QMargins frame = windowHandle()->frameMargins();
    if (!frame.isNull() && frame != frame_) {
      desktop_.learnTitleBarMargins(frame);
      place();
    }
  }
  return QWidget::event(event);  // The last thing: the event may be this window's end.
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // The desktop takes it off the display, in its order.
  if (screen_) desktop_.run([this] { desktop_.unload(screen_->name()); });
}

void ScreenWindow::paintEvent(QPaintEvent* /*event*/) {
  if (!screen_) return;
  QPainter painter(this);
  const Colour& ground = screen_->background;
  painter.fillRect(rect(), QColor(ground.red, ground.green, ground.blue));
  if (screen_->frame == Frame::ThinLine) {
    painter.setPen(Qt::black);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void ScreenWindow::mousePressEvent(QMouseEvent* event) {
  if (!screen_) return;
  // A page without a title bar is moved by its background.
  if (screen_->frame == Frame::ThinLine && event->button() == Qt::LeftButton)
    windowHandle()->startSystemMove();
}

}  // namespace platform::qt
