#include "platform/qt/keys.h"

#include <algorithm>
#include <array>

#include "platform/qt/window_system.h"

namespace platform::qt {

namespace {

struct NamedKey {
  int code = 0;  // In Qt.
  Key key = Key::Space;
  bool repeats = false;  // A key held down presses a button once, but moves on.
};

constexpr std::array namedKeys{
    NamedKey{Qt::Key_Tab, Key::Tab, true},       NamedKey{Qt::Key_Backtab, Key::BackTab, true},
    NamedKey{Qt::Key_Left, Key::Left, true},     NamedKey{Qt::Key_Right, Key::Right, true},
    NamedKey{Qt::Key_Up, Key::Up, true},         NamedKey{Qt::Key_Down, Key::Down, true},
    NamedKey{Qt::Key_PageUp, Key::PageUp},       NamedKey{Qt::Key_PageDown, Key::PageDown},
    NamedKey{Qt::Key_Backspace, Key::Backspace}, NamedKey{Qt::Key_F1, Key::F1},
    NamedKey{Qt::Key_Return, Key::Return},       NamedKey{Qt::Key_Enter, Key::Return},
    NamedKey{Qt::Key_Escape, Key::Escape},       NamedKey{Qt::Key_Space, Key::Space}};

/// A letter or digit, and where it is on a Latin keyboard.
struct Place {
  quint32 scanCode;
  char character;
};

constexpr std::array places{Place{2, '1'},  Place{3, '2'},  Place{4, '3'},  Place{5, '4'},
                            Place{6, '5'},  Place{7, '6'},  Place{17, 'W'}, Place{19, 'R'},
                            Place{20, 'T'}, Place{31, 'S'}, Place{32, 'D'}};

}  // namespace

std::optional<Key> keyFrom(const QKeyEvent& event) {
  constexpr Qt::KeyboardModifiers ours = Qt::ShiftModifier | Qt::KeypadModifier;
  if ((event.modifiers() & ~ours) != Qt::NoModifier) return std::nullopt;
  const auto* named = std::ranges::find(namedKeys, event.key(), &NamedKey::code);
  if (event.isAutoRepeat() && (named == namedKeys.end() || !named->repeats)) return std::nullopt;
  if (named != namedKeys.end()) return named->key;
  // Where letters are others and digits need Shift, a key counts by its place; what it gives comes first.
  const auto* found = std::ranges::find(places, event.key(), &Place::character);
  const quint32 scanCode = event.nativeScanCode() - firstScanCode;
  if (found == places.end()) found = std::ranges::find(places, scanCode, &Place::scanCode);
  if (found == places.end()) return std::nullopt;
  return Key{found->character};
}

}  // namespace platform::qt
