#include "platform/screen.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace platform {

namespace {

bool canBeChosen(const Widget& widget) {
  return widget.visible && widget.enabled;
}

}  // namespace

void Screen::bringToFront(const Widget& widget) {
  const auto found = std::find(drawingOrder_.begin(), drawingOrder_.end(), &widget);
  if (found != drawingOrder_.end()) std::rotate(found, found + 1, drawingOrder_.end());
}

void Screen::add(Widget& widget, std::string name, Appearance designed) {
  static_cast<Appearance&>(widget) = std::move(designed);
  widget.name = std::move(name);
  widgets_.push_back(&widget);
  drawingOrder_.push_back(&widget);
  if (widget.role == Role::Button || widget.role == Role::CheckBox || widget.role == Role::Link) {
    widget.tabStop = static_cast<int>(widgets_.size());
  }
}

void Screen::setFocus(Widget& widget) {
  focus_ = &widget;
  chosenLast_[widget.tabStop] = &widget;
}

void Screen::moveFocusAlong(int tabStop, int steps) {
  std::vector<Widget*> members;
  std::copy_if(widgets_.begin(), widgets_.end(), std::back_inserter(members),
               [=](const Widget* widget) { return widget->tabStop == tabStop && canBeChosen(*widget); });
  if (members.empty()) return;
  const auto last = std::find(members.begin(), members.end(), chosenLast_[tabStop]);
  auto place = last == members.end() ? 0 : last - members.begin();
  const bool inside = focus_ != nullptr && focus_->tabStop == tabStop;
  if (inside) place = std::clamp<std::ptrdiff_t>(place + steps, 0, std::ssize(members) - 1);
  setFocus(*members[static_cast<std::size_t>(place)]);
}

void Screen::moveFocusToStop(bool forwards) {
  std::set<int> stops;
  for (const Widget* widget : widgets_) {
    if (widget->tabStop != 0 && canBeChosen(*widget)) stops.insert(widget->tabStop);
  }
  if (stops.empty()) return;
  const int here = focus_ ? focus_->tabStop : 0;
  auto next = stops.upper_bound(here);
  if (next == stops.end()) next = stops.begin();
  auto before = stops.lower_bound(here);
  before = std::prev(before == stops.begin() ? stops.end() : before);
  moveFocusAlong(forwards ? *next : *before, 0);
}

void Screen::answer(Key key) {
  if (onKey(key)) return;
  if ((key == Key::Space || key == Key::Return) && focus_ && canBeClicked(*focus_)) {
    activate(*focus_);
    return;
  }
  const auto keyed = std::find_if(widgets_.begin(), widgets_.end(), [key](const Widget* widget) {
    return widget->key == key && canBeClicked(*widget);
  });
  if (keyed != widgets_.end()) {
    activate(**keyed);
  } else if (key == Key::Tab || key == Key::BackTab) {
    moveFocusToStop(key == Key::Tab);
  }
}

std::string indexed(std::string_view array, std::size_t index) {
  return std::string(array) + "(" + std::to_string(index) + ")";
}

}  // namespace platform
