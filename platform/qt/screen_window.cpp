#include "platform/qt/screen_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QToolTip>
#include <QWindow>
#include <algorithm>
#include <optional>

#include "platform/qt/keys.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/window_system.h"

namespace platform::qt {

namespace {

// Dialogs, since window managers keep a dialog above the window it belongs to, so a click on the backdrop
// cannot bring it in front of the game.
Qt::WindowFlags flagsFor(Frame frame) {
  if (frame == Frame::ThinLine) return Qt::Dialog | Qt::FramelessWindowHint;
  return Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
         Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint;
}

int bits(Qt::MouseButtons buttons) {
  return (buttons & Qt::LeftButton ? leftButton : 0) | (buttons & Qt::RightButton ? 2 : 0) |
         (buttons & Qt::MiddleButton ? 4 : 0);
}

MouseEvent mouseFrom(const QMouseEvent& event) {
  const QPointF at = event.position() * static_cast<qreal>(twipsPerPixel);
  return {bits(event.buttons()), static_cast<float>(at.x()), static_cast<float>(at.y()),
          std::chrono::milliseconds(event.timestamp())};
}

}  // namespace

ScreenWindow::ScreenWindow(QtDesktop& desktop, Screen& screen)
    : QWidget(nullptr, flagsFor(screen.frame)), desktop_(desktop), screen_(screen) {
  setObjectName(QString::fromStdString(screen.name()));
  // Nobody sees it on a window without a title bar, but a task bar shows it.
  setWindowTitle(QString::fromStdString(screen.caption.empty() ? screen.spokenName : screen.caption));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFixedSize(pixels(screen.client.width), pixels(screen.client.height));
  for (Widget* widget : screen.drawingOrder()) {
    views_.push_back(new View(desktop.pictures(), *widget, *this));
    drawnOrder_.push_back(widget);
  }
  setMouseTracking(true);
}

// Screen readers hear of this, and ask, while there still is a screen to tell of.
ScreenWindow::~ScreenWindow() {
  hide();
  qDeleteAll(views_);
}

void ScreenWindow::refresh() {
  // The mark is on what is seen of the chosen widget's place: the die on an icon, not the icon beneath.
  const Widget* marked = screen_.focus();
  for (const Widget* above : screen_.drawingOrder()) {
    if (!marked) break;
    if (above->visible && above->left == marked->left && above->top == marked->top) marked = above;
  }
  for (View* view : views_) {
    const Widget* widget = &view->widget();
    view->refresh({.focused = widget == marked, .down = widget == screen_.sunk()});
  }
  raiseInDrawingOrder();
}

View* ScreenWindow::view(const Widget& widget) const {
  const auto found = std::ranges::find(views_, &widget, [](const View* view) { return &view->widget(); });
  return found == views_.end() ? nullptr : *found;
}

void ScreenWindow::raiseInDrawingOrder() {
  const auto order = screen_.drawingOrder();
  if (std::equal(order.begin(), order.end(), drawnOrder_.begin(), drawnOrder_.end())) return;
  // Those that still follow one another as before stay; the others go to the top, one after another.
  auto wanted = order.begin();
  for (const Widget* drawn : drawnOrder_) {
    if (wanted != order.end() && *wanted == drawn) ++wanted;
  }
  for (; wanted != order.end(); ++wanted) {
    view(**wanted)->raise();
  }
  drawnOrder_.assign(order.begin(), order.end());
}

void ScreenWindow::present(const QWidget* owner) {
  if (!isVisible()) place(screen_.frame == Frame::TitleBar ? desktop_.titleBar(*this) : QMargins());
  if (owner) belongTo(*owner);
  show();
  raise();
  activateWindow();
}

void ScreenWindow::belongTo(const QWidget& owner) {
  winId();  // Makes the window system's window.
  windowHandle()->setTransientParent(owner.windowHandle());
  if (!handOver(*windowHandle(), *owner.windowHandle()) && isVisible()) {
    hide();
    show();
  }
}

void ScreenWindow::comeForward() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
}

QRect ScreenWindow::placeIn(const QMargins& frame) const {
  const auto twips = [](int px) { return static_cast<float>(px) * twipsPerPixel; };
  const float width = std::max(screen_.width, screen_.client.width + twips(frame.left() + frame.right()));
  const float height = std::max(screen_.height, screen_.client.height + twips(frame.top() + frame.bottom()));
  const QPoint place(pixels(screen_.left - (width - screen_.width) / 2),
                     pixels(screen_.top - (height - screen_.height) / 2));
  return {QGuiApplication::primaryScreen()->geometry().topLeft() + place,
          QSize(pixels(width), pixels(height))};
}

void ScreenWindow::place(const QMargins& frame) {
  const QRect whole = placeIn(frame);
  const QSize inside = whole.marginsRemoved(frame).size();
  setFixedSize(inside);
  screen_.inner = {static_cast<float>(inside.width()) * twipsPerPixel,
                   static_cast<float>(inside.height()) * twipsPerPixel};
  if (isVisible()) {
    windowHandle()->setFramePosition(whole.topLeft());  // Also where Qt thinks it is there.
  } else {
    move(whole.topLeft());
  }
}

// Once a window is on the display its frame is there to be seen; Fluxbox 1.3 foretells none. And Openbox 3.6,
// Xfwm4 4.18 and Fluxbox move a new window that overhangs the display, but do as they are asked later.
void ScreenWindow::settle() {
  const QMargins frame = windowHandle()->frameMargins();
  const bool titled = screen_.frame == Frame::TitleBar;
  if (settled_ || !isVisible() || (titled && frame.isNull())) return;
  settled_ = true;
  if (titled) desktop_.learnTitleBar(frame);
  if (placeIn(frame).marginsRemoved(frame) != QRect(standsAt(*windowHandle()), size())) place(frame);
}

// A window that a handler takes off the display goes at once, so none of its own events may be under way.
void ScreenWindow::inTurn(const std::function<void()>& handler) {
  QMetaObject::invokeMethod(this, handler, Qt::QueuedConnection);
}

bool ScreenWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip:
      showToolTip(static_cast<QHelpEvent*>(event)->pos());
      return true;
    case QEvent::Move:
    case QEvent::WindowActivate:
      settle();
      break;
    case QEvent::WindowStateChange: {
      const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
      if (isMinimized() != before.testFlag(Qt::WindowMinimized)) desktop_.followMinimising(isMinimized());
      break;
    }
    default:
      break;
  }
  return QWidget::event(event);
}

void ScreenWindow::showToolTip(const QPoint& at) {
  const auto found = std::find_if(views_.begin(), views_.end(), [&](const View* view) {
    return view->isVisible() && view->geometry().contains(at) && !view->widget().toolTip.empty();
  });
  if (found == views_.end()) return;
  QToolTip::showText(mapToGlobal(at), QString::fromStdString((*found)->widget().toolTip), this,
                     (*found)->geometry());
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // The desktop takes it off the display, in its order.
  inTurn([this] { desktop_.handle([this] { desktop_.unload(screen_.name()); }); });
}

void ScreenWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Colour& ground = screen_.background;
  painter.fillRect(rect(), QColor(ground.red, ground.green, ground.blue));
  if (screen_.frame == Frame::ThinLine) {
    // The number that stands in the page's corner would touch its line.
    QRegion line(rect());
    for (const View* view : views_) {
      if (view->pos().isNull()) line -= view->geometry();
    }
    painter.setClipRegion(line);
    const QRect whole = toDisplayPixels(painter, rect());
    paintFrame(painter, whole, std::max(1, qRound(devicePixelRatioF())), Qt::black);
  }
}

void ScreenWindow::mousePressEvent(QMouseEvent* event) {
  inTurn([this, mouse = mouseFrom(*event), at = event->pos()] {
    const bool ground = !desktop_.pressMouse(screen_, mouse);
    grip_.reset();
    if (ground && mouse.buttons == leftButton && screen_.frame == Frame::ThinLine) grip_ = at;
  });
}

void ScreenWindow::mouseMoveEvent(QMouseEvent* event) {
  inTurn([this, mouse = mouseFrom(*event), at = event->pos()] {
    // A page without a title bar is moved by its ground.
    if (grip_ && mouse.buttons == leftButton &&
        (at - *grip_).manhattanLength() >= QApplication::startDragDistance()) {
      grip_.reset();
      windowHandle()->startSystemMove();
    }
    desktop_.moveMouse(screen_, mouse);
  });
}

void ScreenWindow::mouseReleaseEvent(QMouseEvent* event) {
  inTurn([this, mouse = mouseFrom(*event), button = bits(event->button())] {
    desktop_.releaseMouse(screen_, mouse, button);
  });
}

void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  if (const std::optional<Key> key = keyFrom(*event)) {
    inTurn([this, key] { desktop_.pressKey(screen_, *key); });
  } else {
    QWidget::keyPressEvent(event);
  }
}

// Tab is a key like any other: the screen knows what the keyboard has chosen.
bool ScreenWindow::focusNextPrevChild(bool /*next*/) {
  return false;
}

}  // namespace platform::qt
