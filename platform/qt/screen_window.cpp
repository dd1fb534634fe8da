#include "platform/qt/screen_window.h"

#include <QGuiApplication>
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
#include "platform/qt/x11.h"

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
      return Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus;
  }
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
    : QWidget(nullptr, flagsFor(screen.frame)), desktop_(desktop), screen_(&screen) {
  setObjectName(QString::fromStdString(screen.name()));
  setWindowTitle(QString::fromStdString(screen.caption));
  setAttribute(Qt::WA_OpaquePaintEvent);
  for (Widget* widget : screen.drawingOrder()) {
    views_.push_back(new View(desktop.pictures(), *widget, *this));
    drawnOrder_.push_back(widget);
  }
  setMouseTracking(true);
}

void ScreenWindow::refresh() {
  // The mark is on what is seen of the chosen widget's place: the die on an icon, not the icon beneath.
  const Widget* marked = screen_->focus();
  for (const Widget* above : screen_->drawingOrder()) {
    if (!marked) break;
    if (above->visible && above->left == marked->left && above->top == marked->top) marked = above;
  }
  for (View* view : views_) {
    const Widget* widget = &view->widget();
    view->refresh({.focused = widget == marked, .down = widget == screen_->sunk()});
  }
  raiseInDrawingOrder();
}

View* ScreenWindow::view(const Widget& widget) const {
  const auto found = std::find_if(views_.begin(), views_.end(),
                                  [&](const View* view) { return &view->widget() == &widget; });
  return found == views_.end() ? nullptr : *found;
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
    view(**wanted)->raise();
  }
  drawnOrder_.assign(order.begin(), order.end());
}

void ScreenWindow::present(ScreenWindow* owner) {
  if (!isVisible()) place();
  belongTo(owner);
  show();
  heedFrame();
  raise();
  activateWindow();
}

void ScreenWindow::belongTo(ScreenWindow* owner) {
  if (owner == owner_) return;
  owner_ = owner;
  QWindow* behind = owner ? owner->windowHandle() : nullptr;
  // A Wayland compositor hears of an owner only with a new window; of none, it needs not hear. A window
  // manager would lose a window that goes and comes at once.
  const bool comesAnew = isVisible() && behind != nullptr && !onX11();
  if (comesAnew) hide();
  windowHandle()->setTransientParent(behind);
  if (comesAnew) show();
  if (isVisible() && onX11()) setTransientParentOfMapped(*windowHandle(), behind);
}

void ScreenWindow::cover(Screen& screen) {
  screen_ = &screen;
  setAttribute(Qt::WA_ShowWithoutActivating);
  setGeometry(QGuiApplication::primaryScreen()->geometry());  // Where no window manager does it.
  setWindowState(Qt::WindowFullScreen);                       // `showFullScreen` would give it the keyboard.
  show();
}

void ScreenWindow::uncover() {
  screen_ = nullptr;
  hide();
}

void ScreenWindow::dismiss() {
  screen_ = nullptr;
  hide();
  deleteLater();
}

void ScreenWindow::place() {
  winId();  // Makes the window system's window.
  frame_ = QMargins();
  if (screen_->frame == Frame::TitleBar) {
    if (!desktop_.titleBar()) {
      setFixedSize(pixels(screen_->client.width), pixels(screen_->client.height));
      if (const auto frame = futureFrame(*windowHandle())) desktop_.learnTitleBar(*frame);
    }
    frame_ = desktop_.titleBar().value_or(QMargins());
  }
  const Placement outer = outerPlacement(*screen_, extents(frame_));
  const QPoint display = QGuiApplication::primaryScreen()->geometry().topLeft();
  const QRect whole(display + QPoint(pixels(outer.left), pixels(outer.top)),
                    QSize(pixels(outer.width), pixels(outer.height)));
  const QRect inside = whole.marginsRemoved(frame_);
  setFixedSize(inside.size());
  if (isVisible()) {
    setGeometry(inside);  // `move` would count with the frame that Qt has known for long.
  } else {
    // Some window managers know only where a new window's frame stands, some only where its inside stands
    // later.
    setGeometry(QRect(whole.topLeft(), inside.size()));
    windowHandle()->resize(inside.size());
    windowHandle()->setFramePosition(whole.topLeft());
  }
}

// The frame may be another than the window manager said, or than that of earlier windows: it is there to be
// seen once the window is on the display.
void ScreenWindow::heedFrame() {
  if (frameIsSeen_ || !screen_ || screen_->frame != Frame::TitleBar || !isVisible()) return;
  const QMargins frame = windowHandle()->frameMargins();
  // Some window managers pass through the most wonderful frames on their way to the right one.
  constexpr int thickest = 96;
  for (const int side : {frame.left(), frame.top(), frame.right(), frame.bottom()}) {
    if (side < 0 || side > thickest) return;
  }
  if (frame.isNull()) return;  // Or not yet there.
  frameIsSeen_ = true;
  if (frame == frame_) return;
  desktop_.learnTitleBar(frame);
  place();
}

bool ScreenWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ToolTip:
      showToolTip(static_cast<QHelpEvent*>(event)->pos());
      return true;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowActivate:
      heedFrame();
      break;
    case QEvent::MouseButtonPress:
      // Not every window manager keeps the game in front of a backdrop that came later.
      if (screen_ && screen_->frame == Frame::Backdrop) desktop_.bringGameForward();
      break;
    case QEvent::WindowStateChange:
      if (screen_) desktop_.followMinimising(*this);
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

void ScreenWindow::showToolTip(const QPoint& at) {
  const auto found = std::find_if(views_.begin(), views_.end(), [&](const View* view) {
    return view->isVisible() && view->geometry().contains(at) && !view->widget().toolTip.empty();
  });
  if (screen_ == nullptr || found == views_.end()) return;
  QToolTip::showText(mapToGlobal(at), QString::fromStdString((*found)->widget().toolTip), this,
                     (*found)->geometry());
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // The desktop takes it off the display, in its order.
  // In its turn: the window system may ask while a handler runs.
  const auto close = [this] {
    if (screen_) desktop_.handle([this] { desktop_.unload(screen_->name()); });
  };
  QMetaObject::invokeMethod(this, close, Qt::QueuedConnection);
}

void ScreenWindow::paintEvent(QPaintEvent* /*event*/) {
  if (!screen_) return;
  QPainter painter(this);
  const Colour& ground = screen_->background;
  painter.fillRect(rect(), QColor(ground.red, ground.green, ground.blue));
  if (screen_->frame == Frame::ThinLine) {
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
  if (screen_ == nullptr || desktop_.pressMouse(*screen_, mouseFrom(*event))) return;
  // A page without a title bar is moved by its background.
  if (screen_->frame == Frame::ThinLine && event->button() == Qt::LeftButton)
    windowHandle()->startSystemMove();
}

void ScreenWindow::mouseMoveEvent(QMouseEvent* event) {
  if (screen_) desktop_.moveMouse(*screen_, mouseFrom(*event));
}

void ScreenWindow::mouseReleaseEvent(QMouseEvent* event) {
  if (screen_) desktop_.releaseMouse(*screen_, mouseFrom(*event), bits(event->button()));
}

void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  const std::optional<Key> key = keyFrom(*event);
  if (screen_ != nullptr && key) {
    desktop_.pressKey(*screen_, *key);
  } else {
    QWidget::keyPressEvent(event);
  }
}

// Tab is a key like any other: the screen knows what the keyboard has chosen.
bool ScreenWindow::focusNextPrevChild(bool /*next*/) {
  return false;
}

}  // namespace platform::qt
