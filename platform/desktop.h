// The desktop as the game sees it: screens that are shown and unloaded by name, pictures, sounds, chance, the
// pointer, and documents handed to other programs.
//
// One handler runs at a time. When it has returned, the desktop carries out what must wait for that: screens
// that were unloaded are destroyed, enabled timers start to count, and the view is brought up to date.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/chance.h"
#include "platform/screen.h"

namespace platform {

enum class Pointer { Default, Busy };

class Desktop {
 public:
  using ScreenFactory = std::function<std::unique_ptr<Screen>()>;

  Desktop() = default;
  virtual ~Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- For the game ---

  /// Shows the screen of this name, which is one of those registered, in front of all others; loads it first
  /// when it is not open.
  void show(std::string_view name);

  /// Closes the screen of this name; it is destroyed when the running handler has returned. Nothing happens
  /// when it is not open.
  void unload(std::string_view name);

  /// The size of the whole display in twips.
  virtual Size displaySize() const = 0;

  /// Reads the picture called `path`, to be drawn by widgets that show it. Its own size in twips: its pixels
  /// over its stated resolution, or over 96 dots per inch when it states none. Nothing when there is no such
  /// picture or it cannot be read.
  virtual std::optional<Size> readPicture(std::string_view path) = 0;

  /// Starts the sound file and returns at once; a sound still playing is cut off. The desktop's alert is
  /// heard when the file cannot be played, nothing when there is no sound device.
  virtual void playwav(std::string_view path) = 0;

  /// Hands a web address, or a file in the current directory, to the program that opens such things. Nothing
  /// happens when there is no such file or program.
  virtual void openDocument(std::string_view target) = 0;

  virtual void setPointer(Pointer pointer) = 0;

  /// Ends the program at once; nothing is asked and nothing is saved.
  virtual void endProgram() = 0;

  virtual Chance& chance() = 0;

  /// Tells those who do not see the display. What one handler says is told as one text when it has returned.
  void say(std::string_view words);

  /// What was told last.
  const std::string& lastSaid() const { return lastSaid_; }

  // --- For those who set the desktop up and those who show it ---

  void registerScreen(std::string_view name, ScreenFactory factory);

  /// The open screen of this name, or null.
  Screen* find(std::string_view name) const;

  /// The open screens, the one shown last at the end.
  std::span<const std::unique_ptr<Screen>> openScreens() const { return open_; }

  /// Runs a handler to its end, and then what must wait for that; never within another.
  /// When no screen but a backdrop is left, the program ends: nobody is left with a coloured display and no
  /// way out.
  void handle(const std::function<void()>& handler) { handleAt(now(), handler); }

  /// Shows the first screen.
  void start(std::string_view screen);

  /// A click on `widget`. False, and nothing happens, when it would not be heard.
  bool click(Widget& widget);

  // The mouse over the client area of an open screen, and the keyboard while that screen has it. The topmost
  // widget under the pointer hears of a press; while the button is held it hears of every move and of the
  // release, wherever the pointer is, and no other widget and no key is heard. A widget that is dragged hears
  // of no place outside the window's inside, so that it cannot get out of reach. The second press of a double
  // click is nobody's when the first has brought up the screen that it would reach.

  /// A button goes down; `mouse.buttons` tells all that are held. False when there is nothing that could have
  /// heard of it: the screen's own ground.
  bool pressMouse(Screen& screen, const MouseEvent& mouse);
  void moveMouse(Screen& screen, MouseEvent mouse);
  /// `button` goes up; `mouse.buttons` tells those still held.
  void releaseMouse(Screen& screen, const MouseEvent& mouse, int button);
  void pressKey(Screen& screen, Key key);

  /// When the next tick of an open screen's timer is due; nothing while no timer counts.
  std::optional<Moment> nextTick() const;

  /// Runs the tick that has been due longest, if one is due. It counts as having come when it was
  /// due, unless it is later than a whole interval: so ticks keep their rhythm and a pause causes no burst.
  void runDueTick();

 protected:
  /// The desktop's own clock, which never goes back.
  virtual Moment now() const = 0;

  /// Puts a screen that has been loaded on the display, or brings it to the front when it is there.
  virtual void present(Screen& screen) = 0;

  /// Takes a screen off the display for good; it is destroyed next.
  virtual void dismiss(Screen& screen) = 0;

  /// A handler has returned: draws what differs, on any open screen, from what was last drawn.
  virtual void refresh() = 0;

  /// Tells those who do not see the display, once it shows what is told.
  virtual void announce(const std::string& words) = 0;

 private:
  void handleAt(Moment moment, const std::function<void()>& handler);
  Timer* earliestTimer() const;
  void startTimers();

  std::vector<std::pair<std::string, ScreenFactory>> factories_;
  std::vector<std::unique_ptr<Screen>> open_;
  std::vector<std::unique_ptr<Screen>> closed_;  // Unloaded by the running handler.
  Moment moment_{};                              // When the running handler's event happened.
  bool handling_ = false;
  std::string words_;  // Said by the running handler.
  std::string lastSaid_;
  Moment lastPress_{};  // Of a mouse button, by the window system's clock.
  int presses_ = 0;
};

/// Gives `widget` the picture called `path` and returns the picture's own size; leaves the widget without
/// one, and returns nothing, where that cannot be read.
std::optional<Size> loadPicture(Desktop& desktop, Widget& widget, std::string_view path);

}  // namespace platform
