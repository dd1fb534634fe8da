// The size and place of the large screens.
#pragma once

#include "platform/desktop.h"

namespace shell {

/// Puts `screen` in the middle of the display, as large as its client area needs.
void centre(const platform::Desktop& desktop, platform::Screen& screen);

/// Makes `screen` 12000 by 9000 twips, frame included, and centres it. On a smaller display it overhangs
/// every edge by the same amount. The pointer shows busy meanwhile.
void fitscreen(platform::Desktop& desktop, platform::Screen& screen);

}  // namespace shell
