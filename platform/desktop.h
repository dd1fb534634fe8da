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

/// What the desktop's frame adds around a client area, in twips.
struct FrameExtents {
  float left = 0;
  float top = 0;
  float right = 0;
  float bottom = 0;

  friend bool operator==(const FrameExtents&, const FrameExtents&) = default;
};

/// A place on the display in twips.
struct Placement {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;
};

/// Where `screen` stands, frame included: as it asks, or evenly larger where the frame would leave its client
/// area too small.
Placement outerPlacement(const Screen& screen, const FrameExtents& frame);

class Desktop {
 public:
  using ScreenFactory = std::function<std::unique_ptr<Screen>()>;

  Desktop() = default;
  virtual ~Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  // --- For the game ---

  /// Shows the screen of this name in front of all others; loads it first when it is not open.
  void show(std::string_view name);

  /// Closes the screen of this name; it is destroyed when the running handler has returned. Nothing happens
  /// when it is not open.
  void unload(std::string_view name);

  /// The size of the whole display in twips.
  virtual Size displaySize() const = 0;

  /// What the desktop puts around a screen with a title bar, as far as it is known yet.
  virtual FrameExtents titleBarFrame() const = 0;

  /// Reads the picture called `path`, to be drawn by widgets that show it. Its own size in twips: its pixels
  /// over its stated resolution, or over 96 dots per inch when it states none. Nothing when there is no such
  /// picture or it cannot be read.
  virtual std::optional<Size> readPicture(std::string_view path) = 0;

  /// Starts the sound file and returns at once; a sound still playing is cut off. The desktop's alert is
  /// heard when the file cannot be played, nothing when there is no sound device.
  virtual void playSound(std::string_view path) = 0;

  /// Hands a web address, or a file in the current directory, to the program that opens such things. Nothing
  /// happens when there is no such file or program.
  virtual void openDocument(std::string_view target) = 0;

  virtual void setPointer(Pointer pointer) = 0;

  /// Ends the program at once; nothing is asked and nothing is saved.
  virtual void endProgram() = 0;

  virtual Chance& chance() = 0;

  // --- For those who set the desktop up and those who show it ---

  void registerScreen(std::string name, ScreenFactory factory);

  /// The open screen of this name, or null.
  Screen* find(std::string_view name) const;

  /// The open screens, the one shown last at the end.
  std::span<const std::unique_ptr<Screen>> openScreens() const { return open_; }

  /// Runs a handler to its end at the moment `now`, and then what must wait for that. When no screen but a
  /// backdrop is left, the program ends: nobody is left with a coloured display and no way out.
  void handle(Moment now, const std::function<void()>& handler);

  /// A click on `widget` at the moment `now`: a check box changes its tick, then the widget's handler runs.
  /// False, and nothing happens, when the widget is hidden, disabled or deaf to clicks.
  bool click(Moment now, Widget& widget);

  /// When the next tick of an open screen's timer is due; nothing while no timer counts.
  std::optional<Moment> nextTick() const;

  /// Runs the tick that has been due longest, if one is due at `now`. It counts as having come when it was
  /// due, unless it is later than a whole interval: so ticks keep their rhythm and a pause causes no burst.
  void runDueTick(Moment now);

 protected:
  /// Puts a screen that has been loaded on the display, or brings it to the front when it is there.
  virtual void present(Screen& screen) = 0;

  /// Takes a screen off the display for good; it is destroyed next.
  virtual void dismiss(Screen& screen) = 0;

  /// A handler has returned: draws what differs from what was last drawn.
  virtual void refresh(Screen& screen) = 0;

 private:
  Timer* earliestTimer() const;
  void startTimers();
  void destroyClosed();

  std::vector<std::pair<std::string, ScreenFactory>> factories_;
  std::vector<std::unique_ptr<Screen>> open_;
  std::vector<std::unique_ptr<Screen>> closed_;  // Unloaded by the running handler.
  Moment moment_{};                              // When the running handler's event happened.
};

/// Gives `widget` the picture called `path` and returns the picture's own size; leaves the widget without
/// one, and returns nothing, where that cannot be read.
std::optional<Size> loadPicture(Desktop& desktop, Widget& widget, std::string_view path);

}  // namespace platform
