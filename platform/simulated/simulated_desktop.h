// A desktop without a display: the clock is moved by hand, clicks and drags are calls, and what the game asks
// of the desktop is written to lists.
#pragma once

#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/desktop.h"

namespace platform {

/// Chance that can be told what comes next; without script a generator with a fixed seed.
class SimulatedChance final : public Chance {
 public:
  void reseed() override { ++reseeds; }
  double next() override;

  std::deque<double> script;  ///< Numbers in [0, 1), used up first.
  int reseeds = 0;

 private:
  std::mt19937_64 generator_{20261122};
};

class SimulatedDesktop final : public Desktop {
 public:
  // What the display is like.
  Size display{19200, 15360};
  /// Their own sizes, or nothing for those that cannot be read; any other picture is 1500 by 1500.
  std::map<std::string, std::optional<Size>, std::less<>> pictures;

  // What the game asked for, in order.
  std::vector<std::string> sounds;
  std::vector<std::string> documents;
  std::vector<Pointer> pointers;
  std::vector<std::string> said;
  std::vector<std::string> presented;  ///< Screens that were put or brought to the front.
  int refreshes = 0;                   ///< How often the view was brought up to date.
  bool ended = false;

  Moment now() const override { return now_; }

  /// Moves the clock on, with every tick that is due on the way, the last moment included.
  void advance(int milliseconds);

  /// Moves the clock on without a tick, as on a machine that has no time for the program.
  void stall(int milliseconds) { now_ += std::chrono::milliseconds(milliseconds); }

  using Desktop::click;

  /// Clicks the widget of this name ("Label2(3)") on an open screen as a person would. False when there is
  /// nothing to click there: the screen is not open, or the widget is hidden, disabled or deaf to clicks.
  bool click(std::string_view screen, std::string_view name);

  using Desktop::moveMouse;
  using Desktop::pressKey;
  using Desktop::pressMouse;
  using Desktop::releaseMouse;

  /// Drags with these buttons from one place of an open screen's client area to another, in twips, and lets
  /// go.
  void drag(std::string_view screen, MouseEvent from, MouseEvent to);

  /// Presses a key while an open screen has the keyboard.
  void pressKey(std::string_view screen, Key key);

  /// Closes a screen with its window's own close control.
  void closeWindow(std::string_view screen);

  /// The widget of this name on an open screen; null where there is none.
  Widget* widget(std::string_view screen, std::string_view name) const;

  Size displaySize() const override { return display; }
  std::optional<Size> readPicture(std::string_view path) override;
  void playwav(std::string_view path) override { sounds.emplace_back(path); }
  void openDocument(std::string_view target) override { documents.emplace_back(target); }
  void setPointer(Pointer pointer) override { pointers.push_back(pointer); }
  void endProgram() override { ended = true; }
  SimulatedChance& chance() override { return chance_; }

 private:
  void present(Screen& screen) override { presented.push_back(screen.name()); }
  void dismiss(Screen& /*screen*/) override {}
  void refresh() override { ++refreshes; }
  void announce(const std::string& words) override { said.push_back(words); }

  Moment now_{};
  SimulatedChance chance_;
};

}  // namespace platform
