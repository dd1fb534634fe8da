// What Qt does not do on X11.
#pragma once

#include <QMargins>
#include <optional>

class QWindow;

namespace platform::qt {

bool onX11();

/// Whether the X server that the environment names lets a window stand in front of one that fills the
/// display: Weston's does not. Needs no application; true where there is no such server.
bool standsInFrontOfFullScreen();

/// The frame that the window manager is going to put around `window`, which is created and not yet on the
/// display; it waits a moment for the answer. Nothing where no window manager answers.
std::optional<QMargins> futureFrame(QWindow& window);

/// Has `window` belong to another window, or to none when that is null, as `QWindow::setTransientParent` does
/// for a window that is not yet on the display.
void setTransientParentOfMapped(QWindow& window, const QWindow* parent);

/// Minimises `window` or brings it back, and leaves all else of its state alone; Qt would take a window from
/// full screen and make it that again on the way, which to some window managers means bringing it back.
void setMinimised(QWindow& window, bool minimised);

}  // namespace platform::qt
