#include "platform/simulated/simulated_desktop.h"

#include <algorithm>

namespace platform {

double SimulatedChance::next() {
  if (script.empty()) return static_cast<double>(generator_() >> 11) * 0x1p-53;
  const double scripted = script.front();
  script.pop_front();
  return scripted;
}

void SimulatedDesktop::advance(int milliseconds) {
  const Moment end = now_ + std::chrono::milliseconds(milliseconds);
  for (auto due = nextTick(); due && *due <= end; due = nextTick()) {
    now_ = std::max(now_, *due);
    runDueTick();
  }
  now_ = end;
}

bool SimulatedDesktop::click(std::string_view screen, std::string_view name) {
  Widget* clicked = widget(screen, name);
  return clicked != nullptr && click(*clicked);
}

void SimulatedDesktop::drag(std::string_view screen, MouseEvent from, MouseEvent to) {
  Screen* shown = find(screen);
  if (!shown) return;
  from.time = now_;
  pressMouse(*shown, from);
  moveMouse(*shown, to);
  const int button = std::exchange(to.buttons, 0);
  releaseMouse(*shown, to, button);
}

void SimulatedDesktop::pressKey(std::string_view screen, Key key) {
  if (Screen* shown = find(screen)) pressKey(*shown, key);
}

void SimulatedDesktop::closeWindow(std::string_view screen) {
  handle([&] { unload(screen); });
}

Widget* SimulatedDesktop::widget(std::string_view screen, std::string_view name) const {
  const Screen* shown = find(screen);
  if (!shown) return nullptr;
  const auto widgets = shown->drawingOrder();
  const auto found = std::find_if(widgets.begin(), widgets.end(),
                                  [name](const Widget* candidate) { return candidate->name == name; });
  return found == widgets.end() ? nullptr : *found;
}

std::optional<Size> SimulatedDesktop::readPicture(std::string_view path) {
  const auto listed = pictures.find(path);
  return listed == pictures.end() ? Size{1500, 1500} : listed->second;
}

}  // namespace platform
