#include "platform/qt/backdrop.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>

#include "platform/qt/qt_desktop.h"

namespace platform::qt {

Backdrop::Backdrop(QtDesktop& desktop, const Screen& screen)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      desktop_(desktop) {
  setObjectName(QString::fromStdString(screen.name()));
  setWindowTitle(QString::fromStdString(screen.caption));
  setAccessibleName(QString::fromStdString(screen.spokenName));
  const Colour& ground = screen.background;
  setPalette(QColor(ground.red, ground.green, ground.blue));
}

void Backdrop::cover() {
  setGeometry(QGuiApplication::primaryScreen()->geometry());  // Where no window manager does it.
  setWindowState(Qt::WindowFullScreen);                       // `showFullScreen` would give it the keyboard.
  show();
}

// Fluxbox and Xfwm4 4.18 raise what belongs to a full screen, and lower it again only with that.
void Backdrop::uncover() {
  setWindowState(Qt::WindowNoState);
  hide();
}

// Not every window manager keeps the game in front of a backdrop that came later.
void Backdrop::mousePressEvent(QMouseEvent* /*event*/) {
  desktop_.bringForward();
}

void Backdrop::changeEvent(QEvent* event) {
  if (event->type() != QEvent::WindowStateChange || isMinimized()) return;
  const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
  if (before.testFlag(Qt::WindowMinimized)) desktop_.bringForward();
}

}  // namespace platform::qt
