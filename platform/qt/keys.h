// Which of the game's keys was pressed.
#pragma once

#include <QKeyEvent>
#include <optional>

#include "platform/key.h"

namespace platform::qt {

/// The key that `event` presses, on a keyboard of any language; nothing when the program listens to no such
/// key, or not to its being held down.
std::optional<Key> keyFrom(const QKeyEvent& event);

}  // namespace platform::qt
