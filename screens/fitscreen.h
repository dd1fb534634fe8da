// The size and place of the large screens.
#pragma once

#include "platform/desktop.h"

namespace screens {

/// Gives `screen` the outer size that its client area needs and puts it in the middle of the display.
void centre(const platform::Desktop& desktop, platform::Screen& screen);

/// Makes `screen` 12000 by 9000 twips, frame included, and centres it. On a smaller display it overhangs
/// every edge by the same amount. The pointer shows busy meanwhile.
void fitscreen(platform::Desktop& desktop, platform::Screen& screen);

}  // namespace screens
