#include <QWindow>
#include <windows.h>

#include "platform/qt/window_system.h"

namespace platform::qt {

const quint32 firstScanCode = 0;

void chooseWindowSystem() {}

std::optional<QMargins> futureFrame(QWindow& window) {
  return window.frameMargins();
}

QPoint standsAt(const QWindow& window) {
  return window.position();
}

void giveKeyboard(QWindow& window) {
  window.requestActivate();
}

bool handOver(QWindow& window, const QWindow& owner) {
  const auto handle = reinterpret_cast<HWND>(window.winId());
  SetWindowLongPtrW(handle, GWLP_HWNDPARENT, static_cast<LONG_PTR>(owner.winId()));
  // What belongs to another window has no button in the task bar unless it asks for one.
  SetWindowLongPtrW(handle, GWL_EXSTYLE, GetWindowLongPtrW(handle, GWL_EXSTYLE) | WS_EX_APPWINDOW);
  return true;
}

}  // namespace platform::qt
