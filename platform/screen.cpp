#include "platform/screen.h"

#include <algorithm>
#include <utility>

namespace platform {

void Screen::bringToFront(const Widget& widget) {
  const auto found = std::find(drawingOrder_.begin(), drawingOrder_.end(), &widget);
  if (found != drawingOrder_.end()) std::rotate(found, found + 1, drawingOrder_.end());
}

void Screen::add(Widget& widget, std::string name, Appearance designed) {
  static_cast<Appearance&>(widget) = std::move(designed);
  widget.name = std::move(name);
  drawingOrder_.push_back(&widget);
}

std::string indexed(std::string_view array, std::size_t index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

}  // namespace platform
