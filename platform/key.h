// The keys that the program listens to.
#pragma once

namespace platform {

/// A key by what it is called; any letter, in upper case, or digit that has no name here is itself:
/// `Key{'4'}`. What is no character has a number beyond those.
enum class Key : int {
  Space = ' ',
  D = 'D',
  R = 'R',
  S = 'S',
  T = 'T',
  W = 'W',
  Tab = 256,
  BackTab,  ///< Tab with Shift.
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  Backspace,
  F1,
  Return,
  Escape,
};

}  // namespace platform
