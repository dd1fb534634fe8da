#include "platform/desktop.h"

#include <algorithm>
#include <cassert>

namespace platform {

namespace {

// How soon the second press of a double click follows the first.
constexpr Moment doubleClick = std::chrono::milliseconds(400);

// A button or a link, as against what is dragged.
bool isClicked(const Widget& widget) {
  return !widget.onMouseUp;
}

bool covers(const Widget& widget, const MouseEvent& mouse) {
  return widget.left <= mouse.x && mouse.x < widget.left + widget.width && widget.top <= mouse.y &&
         mouse.y < widget.top + widget.height;
}

bool hearsPress(const Widget& widget, const MouseEvent& mouse) {
  return !isClicked(widget) || (widget.onClick && mouse.buttons == leftButton);
}

// The topmost widget under the pointer that hears the mouse at all; a disabled one still covers what lies
// behind.
Widget* widgetUnder(const Screen& screen, const MouseEvent& mouse) {
  const auto order = screen.drawingOrder();
  const auto found = std::find_if(order.rbegin(), order.rend(), [&mouse](const Widget* widget) {
    const bool hears = widget->onClick || widget->onMouseMove || widget->onMouseUp;
    return hears && widget->visible && covers(*widget, mouse);
  });
  return found == order.rend() ? nullptr : *found;
}

// The same mouse, measured from the widget's top left corner.
MouseEvent over(const Widget& widget, MouseEvent mouse) {
  mouse.x -= widget.left;
  mouse.y -= widget.top;
  return mouse;
}

auto named(std::string_view name) {
  return [name](const std::unique_ptr<Screen>& screen) { return screen->name() == name; };
}

}  // namespace

void Desktop::show(std::string_view name) {
  auto found = std::find_if(open_.begin(), open_.end(), named(name));
  if (found != open_.end()) {
    std::rotate(found, found + 1, open_.end());
    present(*open_.back());
    return;
  }
  const auto entry = std::ranges::find(factories_, name, [](const auto& known) { return known.first; });
  assert(entry != factories_.end() && "No screen of this name is registered.");
  if (entry == factories_.end()) return;
  Screen& screen = *open_.emplace_back(entry->second());
  screen.pressesBefore_ = presses_;
  screen.load();
  screen.inner = screen.client;
  present(screen);
}

void Desktop::unload(std::string_view name) {
  const auto found = std::find_if(open_.begin(), open_.end(), named(name));
  if (found == open_.end()) return;
  closed_.push_back(std::move(*found));
  open_.erase(found);
}

void Desktop::registerScreen(std::string_view name, ScreenFactory factory) {
  factories_.emplace_back(name, std::move(factory));
}

Screen* Desktop::find(std::string_view name) const {
  const auto found = std::find_if(open_.begin(), open_.end(), named(name));
  return found == open_.end() ? nullptr : found->get();
}

void Desktop::say(std::string_view words) {
  if (!words_.empty()) words_ += ' ';
  words_ += words;
}

void Desktop::handleAt(Moment moment, const std::function<void()>& handler) {
  assert(!handling_ && "One handler runs at a time.");
  const struct Handling {
    bool& underWay;
    ~Handling() { underWay = false; }
  } handling{handling_ = true};
  moment_ = moment;
  handler();
  for (const auto& screen : closed_) dismiss(*screen);
  closed_.clear();
  startTimers();
  for (const auto& screen : open_) screen->nameWidgets();
  refresh();
  if (!words_.empty()) {
    lastSaid_ = std::exchange(words_, {});
    announce(lastSaid_);
  }
  const auto isBackdrop = [](const auto& screen) { return screen->frame == Frame::Backdrop; };
  if (std::ranges::all_of(open_, isBackdrop)) endProgram();
}

void Desktop::start(std::string_view screen) {
  handle([&] { show(screen); });
}

bool Desktop::click(Widget& widget) {
  if (!canBeClicked(widget)) return false;
  handle([&widget] { activate(widget); });
  return true;
}

bool Desktop::pressMouse(Screen& screen, const MouseEvent& mouse) {
  const bool secondOfTwo =
      presses_ > 0 && mouse.time - lastPress_ < doubleClick && screen.pressesBefore_ == presses_;
  lastPress_ = mouse.time;
  ++presses_;
  Widget* under = widgetUnder(screen, mouse);
  if (!under) return false;
  if (secondOfTwo || screen.held_ || !under->enabled || !hearsPress(*under, mouse)) return true;
  screen.held_ = under;
  screen.sunk_ = isClicked(*under);
  if (screen.sunk_) refresh();
  return true;
}

void Desktop::moveMouse(Screen& screen, MouseEvent mouse) {
  if (screen.held_ && mouse.buttons == 0) {  // The window system has kept the release to itself.
    releaseMouse(screen, mouse, 0);
    return;  // The screen may have gone with it.
  }
  Widget* heard = screen.held_;
  if (!heard) {
    heard = mouse.buttons == 0 ? widgetUnder(screen, mouse) : nullptr;
  } else if (isClicked(*heard)) {
    const bool wasSunk = std::exchange(screen.sunk_, covers(*heard, mouse));
    if (wasSunk != screen.sunk_) refresh();
  } else {
    mouse.x = std::clamp(mouse.x, 0.F, screen.inner.width);
    mouse.y = std::clamp(mouse.y, 0.F, screen.inner.height);
  }
  if (!heard || !heard->enabled || !heard->onMouseMove) return;
  handle([&] { heard->onMouseMove(over(*heard, mouse)); });
}

void Desktop::releaseMouse(Screen& screen, const MouseEvent& mouse, int button) {
  Widget* held = screen.held_;
  if (!held) return;
  if (mouse.buttons == 0) {
    screen.held_ = nullptr;
    if (std::exchange(screen.sunk_, false)) refresh();
  }
  if (held->onMouseUp) {
    handle([&] { held->onMouseUp(over(*held, mouse)); });
  } else if (button == leftButton && covers(*held, mouse)) {
    click(*held);
  }
}

void Desktop::pressKey(Screen& screen, Key key) {
  if (!screen.held_) handle([&] { screen.answer(key); });
}

std::optional<Moment> Desktop::nextTick() const {
  const Timer* timer = earliestTimer();
  return timer ? std::optional(timer->due_) : std::nullopt;
}

void Desktop::runDueTick() {
  Timer* timer = earliestTimer();
  const Moment moment = now();
  if (!timer || timer->due_ > moment) return;
  const Moment interval = std::chrono::milliseconds(timer->interval_);
  const Moment came = moment - timer->due_ < interval ? timer->due_ : moment;
  timer->due_ = came + interval;
  handleAt(came, timer->onTick);
}

Timer* Desktop::earliestTimer() const {
  Timer* earliest = nullptr;
  for (const auto& screen : open_) {
    for (Timer* timer : screen->timers()) {
      if (timer->enabled_ && (!earliest || timer->due_ < earliest->due_)) earliest = timer;
    }
  }
  return earliest;
}

void Desktop::startTimers() {
  for (const auto& screen : open_) {
    for (Timer* timer : screen->timers()) {
      if (timer->restart_) timer->due_ = moment_ + std::chrono::milliseconds(timer->interval_);
      timer->restart_ = false;
    }
  }
}

std::optional<Size> loadPicture(Desktop& desktop, Widget& widget, std::string_view path) {
  const std::optional<Size> own = desktop.readPicture(path);
  widget.picture = own ? path : std::string_view();
  return own;
}

}  // namespace platform
