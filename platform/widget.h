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

#include "platform/key.h"
#include "platform/timer.h"

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
enum class Role {
  Decoration,  ///< For the eye alone: a frame, a marker, a picture.
  Text,
  Heading,
  Button,
  CheckBox,
  Link,   ///< Leads out of the program.
  Piece,  ///< Lies on the table and can be chosen.
};

/// Everything about a widget that can be seen or is told to who cannot see it.
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
  bool pickedUp = false;     ///< The keyboard has picked it up; its mark says so.
  std::string spokenName{};  ///< What it is called; empty: its text.
  std::string toolTip{};     ///< Shown where the mouse rests; empty: nothing.
  std::string picture{};     ///< A picture that loads (see `loadPicture`), scaled to the box; empty: none.

  friend bool operator==(const Appearance&, const Appearance&) = default;
};

/// The mouse: over a widget, as its handlers hear of it, or over a screen's client area.
struct MouseEvent {
  int buttons = 0;  ///< Bit mask of the buttons held: 1 left, 2 right, 4 middle.
  float x = 0;      ///< Twips from the left edge; may lie outside.
  float y = 0;      ///< Twips from the top edge.
  Moment time{};    ///< When it happened, by the window system's own clock.
};

inline constexpr int leftButton = 1;

struct Widget : Appearance {
  std::string name;        ///< "Label2(3)": unique on its screen.
  int tabStop = 0;         ///< Tab goes from stop to stop, from 1; widgets may share one. 0: passes it by.
  std::optional<Key> key;  ///< Clicks it, whatever else is chosen on its screen.
  std::function<void()> onClick;
  std::function<void(const MouseEvent&)> onMouseMove;
  std::function<void(const MouseEvent&)> onMouseUp;
};

/// Whether a click on `widget` is heard: it is there, enabled, and something happens.
inline bool canBeClicked(const Widget& widget) {
  return widget.visible && widget.enabled && widget.onClick;
}

/// Clicks `widget`: a check box changes its tick, then the widget's handler runs.
inline void activate(Widget& widget) {
  if (widget.role == Role::CheckBox) widget.checked = !widget.checked;
  widget.onClick();
}

/// Like widgets that share a name, by their index; indices may have gaps.
using WidgetArray = std::map<std::size_t, Widget>;

}  // namespace platform
