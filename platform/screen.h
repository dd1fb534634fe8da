// A window of the program: its widgets, its timers and its place on the display.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/timer.h"
#include "platform/widget.h"

namespace platform {

class Desktop;

/// What the desktop puts around a screen.
enum class Frame {
  TitleBar,  ///< The desktop's own frame, with caption, minimise and close control.
  ThinLine,  ///< One dark line inside the screen's own edge.
  Backdrop,  ///< Nothing: the screen covers the display and stays behind the program's other screens.
};

class Screen {
 public:
  /// `name` is what other screens call this one.
  Screen(Desktop& desktop, std::string_view name) : desktop_(desktop), name_(name) {}
  virtual ~Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

  /// Runs once, after construction and before the screen is first seen.
  virtual void load() {}

  const std::string& name() const { return name_; }

  /// The widgets, from the one drawn first to the one drawn last, above all others.
  std::span<Widget* const> drawingOrder() const { return drawingOrder_; }

  std::span<Timer* const> timers() const { return timers_; }

  /// Moves `widget` to the end of the drawing order.
  void bringToFront(const Widget& widget);

  std::string caption;
  Colour background;
  Frame frame = Frame::TitleBar;

  // Outer size and position on the display in twips, frame included. A size that leaves the client area less
  // than `client` is grown to fit, evenly to all sides; so a screen that leaves it at 0 gets exactly its
  // client area.
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  /// The client area that the widgets need, in twips.
  Size client;

 protected:
  Desktop& desktop() const { return desktop_; }

  /// Gives `widget` its name and designed look and draws it above those added before it.
  void add(Widget& widget, std::string name, Appearance designed);

  void add(Timer& timer) { timers_.push_back(&timer); }

 private:
  Desktop& desktop_;
  std::string name_;
  std::vector<Widget*> drawingOrder_;
  std::vector<Timer*> timers_;
};

/// "Label4" and 2 make "Label4(2)": the name of a member of an array of like widgets.
std::string indexed(std::string_view array, std::size_t index);

}  // namespace platform
