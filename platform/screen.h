// A window of the program: its widgets, its timers and its place on the display.
#pragma once

#include <map>
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

  /// Answers a key, before the widgets and Tab do; false when it is none of the screen's own.
  virtual bool onKey(Key /*key*/) { return false; }

  /// Brings the widgets' spoken names up to date; runs after every handler.
  virtual void nameWidgets() {}

  const std::string& name() const { return name_; }

  /// The widgets in the order they were added, which is the order they are read in.
  std::span<Widget* const> widgets() const { return widgets_; }

  /// The widgets, from the one drawn first to the one drawn last, above all others.
  std::span<Widget* const> drawingOrder() const { return drawingOrder_; }

  std::span<Timer* const> timers() const { return timers_; }

  /// Moves `widget` to the end of the drawing order.
  void bringToFront(const Widget& widget);

  /// The widget that the keyboard has chosen; null before the keyboard is used.
  Widget* focus() const { return focus_; }

  /// Has the keyboard choose `widget`, which is one of this screen's.
  void setFocus(Widget& widget);

  /// Chooses the widget `steps` further along a stop, forwards or back, without going round; the one chosen
  /// there last when the stop is entered anew.
  void moveFocusAlong(int tabStop, int steps);

  /// The button that the mouse holds down, with the pointer over it; null when there is none.
  const Widget* sunk() const { return sunk_ ? held_ : nullptr; }

  std::string caption;
  std::string spokenName;  ///< What the window is called to who cannot see it; empty: its caption.
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

  /// The client area that is seen on the display, in twips: no less than `client`.
  Size inner;

 protected:
  Desktop& desktop() const { return desktop_; }

  /// Gives `widget` its name and designed look, draws it above those added before it, and makes it a tab stop
  /// after theirs if it is a button, a check box or a link.
  void add(Widget& widget, std::string name, Appearance designed);

  void add(Timer& timer) { timers_.push_back(&timer); }

 private:
  friend class Desktop;

  void answer(Key key);
  void moveFocusToStop(bool forwards);

  Desktop& desktop_;
  std::string name_;
  std::vector<Widget*> widgets_;
  std::vector<Widget*> drawingOrder_;
  std::vector<Timer*> timers_;
  Widget* focus_ = nullptr;
  std::map<int, Widget*> chosenLast_;  // By tab stop.
  Widget* held_ = nullptr;             // A mouse button went down on it and has not been let go.
  bool sunk_ = false;
  int pressesBefore_ = 0;  // Mouse presses in this run of the program before the screen was shown.
};

/// "Label4" and 2 make "Label4(2)": the name of a member of an array of like widgets.
std::string indexed(std::string_view array, std::size_t index);

}  // namespace platform
