// The keys that the program listens to.
#pragma once

namespace platform {

/// A key by what it is called. Letters and digits are themselves, letters in upper case: `Key{'T'}`.
enum class Key : char {
  BackTab = 1,  ///< Tab with Shift.
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  Backspace = '\b',
  Tab = '\t',
  F1,
  Return = '\r',
  Escape = 27,
  Space = ' ',
};

}  // namespace platform
