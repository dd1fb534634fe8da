// What Qt leaves to whoever places the windows; one file for each window system.
#pragma once

#include <QMargins>
#include <QPoint>
#include <optional>

class QWindow;

namespace platform::qt {

/// Before there is an application: chooses the window system, where there is more than one.
void chooseWindowSystem();

/// What the window system calls the key that the keyboard itself gives the number 0.
extern const quint32 firstScanCode;

/// The frame that is going to stand around `window`, which is created and not yet on the display. Nothing
/// where nobody knows.
std::optional<QMargins> futureFrame(QWindow& window);

/// Where the inside of `window`, which is on the display, stands there.
QPoint standsAt(const QWindow& window);

/// Gives `window` the keyboard.
void giveKeyboard(QWindow& window);

/// Has `window`, which is created, belong to `owner` from now on. False where the window system hears of an
/// owner only when a window comes to the display.
bool handOver(QWindow& window, const QWindow& owner);

}  // namespace platform::qt
