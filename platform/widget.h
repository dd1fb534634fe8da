// What a screen is made of: labels, buttons, pictures and check boxes, as plain data.
//
// The game reads and writes the fields; after every handler the desktop compares each widget with what it
// last drew and touches only what differs. All positions and sizes are in twips (1/1440 inch, 15 to a pixel
// at 96 dots per inch), measured from the top left corner of the screen's client area; fractions are kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  friend bool operator==(const Colour&, const Colour&) = default;
};

inline constexpr Colour black{0, 0, 0};
inline constexpr Colour white{255, 255, 255};

/// A width and a height in twips.
struct Size {
  float width = 0;
  float height = 0;

  friend bool operator==(const Size&, const Size&) = default;
};

/// A typeface by name and its size in points (20 twips each).
struct Font {
  std::string_view family = "Arial";
  float points = 12;
  bool bold = false;

  friend bool operator==(const Font&, const Font&) = default;
};

enum class Alignment { Left, Centre, Right };

/// How keyboards and screen readers meet a widget.
enum class Role { Text, Button, CheckBox };

/// Everything about a widget that can be seen.
struct Appearance {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
  std::string text{};
  Font font{};
  Colour textColour = black;
  std::optional<Colour> background{};  ///< None: whatever lies behind shows through.
  Alignment alignment = Alignment::Left;
  bool border = false;  ///< A single line just inside the box.
  Colour borderColour = black;
  float borderWidth = 15;
  bool visible = true;
  bool enabled = true;  ///< A disabled widget is greyed and takes no clicks.
  bool checked = false;
  Role role = Role::Text;
  std::string picture{};  ///< A picture that loads (see `loadPicture`), scaled to the box; empty: none.

  friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// The mouse over a widget. While a button pressed on a widget is held, that widget receives the events.
struct MouseEvent {
  int buttons = 0;  ///< Bit mask of the buttons held: 1 left, 2 right, 4 middle.
  int shift = 0;    ///< Bit mask of the keys held: 1 Shift, 2 Ctrl, 4 Alt. No screen asks for them yet.
  float x = 0;      ///< Twips from the widget's left edge; may lie outside the widget.
  float y = 0;      ///< Twips from the widget's top edge.
};

struct Widget : Appearance {
  std::string name;  ///< "Label2(3)": unique on its screen.
  std::function<void()> onClick;
  std::function<void(const MouseEvent&)> onMouseMove;
  std::function<void(const MouseEvent&)> onMouseUp;
};

/// Like widgets that share a name, by their index; indices may have gaps.
using WidgetArray = std::map<std::size_t, Widget>;

}  // namespace platform
