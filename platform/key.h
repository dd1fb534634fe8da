// The keys that the program listens to.
#pragma once

namespace platform {

/// A key by what it is called; any letter, in upper case, or digit that has no name here is itself:
/// `Key{'4'}`.
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
  D = 'D',
  R = 'R',
  S = 'S',
  T = 'T',
  W = 'W',
};

}  // namespace platform
