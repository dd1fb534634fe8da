#include <QWindow>

#include "platform/qt/window_system.h"

namespace platform::qt {

const quint32 firstScanCode = 8;

void chooseWindowSystem() {}

std::optional<QMargins> futureFrame(QWindow& /*window*/) {
  return std::nullopt;
}

QPoint standsAt(const QWindow& window) {
  return window.position();
}

void giveKeyboard(QWindow& window) {
  window.requestActivate();
}

bool handOver(QWindow& /*window*/, const QWindow& /*owner*/) {
  return false;
}

}  // namespace platform::qt
