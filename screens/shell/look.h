// How the program's screens look: the few kinds of widget they are all made of.
#pragma once

#include <string>
#include <string_view>

#include "platform/widget.h"

namespace shell::look {

using platform::Alignment;
using platform::Appearance;
using platform::Colour;
using platform::Font;

inline constexpr Colour orange{255, 128, 0};
inline constexpr Colour magenta{255, 0, 255};
inline constexpr Colour yellow{255, 255, 0};
inline constexpr Colour green{0, 255, 0};
inline constexpr Colour navy{0, 0, 128};

/// The line at the foot of every screen but the rules.
inline constexpr std::string_view footer = "Fair winds and a full hold!";

struct Box {
  float left;
  float top;
  float width;
  float height;
};

constexpr Font arial(float points) {
  return {"Arial", points, false};
}
constexpr Font arialBold(float points) {
  return {"Arial", points, true};
}
constexpr Font tahomaBold(float points) {
  return {"Tahoma", points, true};
}

/// Text on whatever lies behind it.
inline Appearance label(Box box, Font font, Colour colour, std::string_view text = {},
                        Alignment alignment = Alignment::Left) {
  return {.left = box.left,
          .top = box.top,
          .width = box.width,
          .height = box.height,
          .text = std::string(text),
          .font = font,
          .textColour = colour,
          .alignment = alignment};
}

inline Appearance centred(Box box, Font font, Colour colour, std::string_view text = {}) {
  return label(box, font, colour, text, Alignment::Centre);
}

/// A framed square of colour: a die, a total.
inline Appearance tile(Box box, Font font, Colour background, std::string_view text = {}) {
  Appearance look = centred(box, font, platform::black, text);
  look.background = background;
  look.border = true;
  return look;
}

inline Appearance button(Box box, Font font, Colour colour, std::string_view text) {
  Appearance look = tile(box, font, platform::black, text);
  look.textColour = colour;
  look.role = platform::Role::Button;
  return look;
}

/// A box for a picture, empty until one is loaded.
inline Appearance picture(Box box) {
  Appearance look = label(box, {}, platform::black);
  look.role = platform::Role::Decoration;
  return look;
}

inline Appearance hidden(Appearance look) {
  look.visible = false;
  return look;
}

}  // namespace shell::look
