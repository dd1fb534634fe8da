#include "platform/desktop.h"

#include <algorithm>

namespace platform {

namespace {

Moment milliseconds(int count) {
  return std::chrono::milliseconds(count);
}

auto named(std::string_view name) {
  return [name](const std::unique_ptr<Screen>& screen) { return screen->name() == name; };
}

}  // namespace

Placement outerPlacement(const Screen& screen, const FrameExtents& frame) {
  const float width = std::max(screen.width, screen.client.width + frame.left + frame.right);
  const float height = std::max(screen.height, screen.client.height + frame.top + frame.bottom);
  return {screen.left - (width - screen.width) / 2, screen.top - (height - screen.height) / 2, width, height};
}

void Desktop::show(std::string_view name) {
  auto found = std::find_if(open_.begin(), open_.end(), named(name));
  if (found != open_.end()) {
    std::rotate(found, found + 1, open_.end());
  } else {
    const auto entry = std::find_if(factories_.begin(), factories_.end(),
                                    [name](const auto& registered) { return registered.first == name; });
    if (entry == factories_.end()) return;
    open_.push_back(entry->second());
    open_.back()->load();
  }
  present(*open_.back());
}

void Desktop::unload(std::string_view name) {
  const auto found = std::find_if(open_.begin(), open_.end(), named(name));
  if (found == open_.end()) return;
  closed_.push_back(std::move(*found));
  open_.erase(found);
}

void Desktop::registerScreen(std::string name, ScreenFactory factory) {
  factories_.emplace_back(std::move(name), std::move(factory));
}

Screen* Desktop::find(std::string_view name) const {
  const auto found = std::find_if(open_.begin(), open_.end(), named(name));
  return found == open_.end() ? nullptr : found->get();
}

void Desktop::handle(Moment now, const std::function<void()>& handler) {
  moment_ = now;
  handler();
  destroyClosed();
  startTimers();
  for (const auto& screen : open_) refresh(*screen);
  if (std::all_of(open_.begin(), open_.end(),
                  [](const auto& screen) { return screen->frame == Frame::Backdrop; })) {
    endProgram();
  }
}

bool Desktop::click(Moment now, Widget& widget) {
  if (!widget.visible || !widget.enabled || !widget.onClick) return false;
  handle(now, [&widget] {
    if (widget.role == Role::CheckBox) widget.checked = !widget.checked;
    widget.onClick();
  });
  return true;
}

std::optional<Moment> Desktop::nextTick() const {
  const Timer* timer = earliestTimer();
  return timer ? std::optional(timer->due_) : std::nullopt;
}

void Desktop::runDueTick(Moment now) {
  Timer* timer = earliestTimer();
  if (!timer || timer->due_ > now) return;
  const Moment interval = milliseconds(timer->interval_);
  const Moment came = now - timer->due_ < interval ? timer->due_ : now;
  timer->due_ = came + interval;
  handle(came, timer->onTick);
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
      if (timer->enabled_ && timer->restart_) timer->due_ = moment_ + milliseconds(timer->interval_);
      timer->restart_ = false;
    }
  }
}

void Desktop::destroyClosed() {
  for (const auto& screen : closed_) dismiss(*screen);
  closed_.clear();
}

std::optional<Size> loadPicture(Desktop& desktop, Widget& widget, std::string_view path) {
  const std::optional<Size> own = desktop.readPicture(path);
  widget.picture = own ? path : std::string_view();
  return own;
}

}  // namespace platform
