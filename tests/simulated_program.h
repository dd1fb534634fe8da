// The whole program on a simulated desktop, driven by what a player does.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "app/register_screens.h"
#include "game/state.h"
#include "platform/simulated/simulated_desktop.h"

namespace tests {

inline constexpr int aWholeThrow = 2100;  // Milliseconds; the first throw of a board takes 2005.

class SimulatedProgram {
 public:
  platform::SimulatedDesktop desktop;
  game::GameOptions options;
  game::GameState state;
  std::string board;  // The open board; `openBoard` sets it.

  /// The program on its title screen.
  SimulatedProgram() {
    app::registerScreens(desktop, options, state);
    desktop.start("Titlefrm");
  }

  /// From the title screen to a fresh board; sounds asked for on the way are forgotten.
  void openBoard(int players) {
    desktop.click("Titlefrm", "Label5");
    desktop.click("Startplay2", platform::indexed("Label1", static_cast<std::size_t>(players) - 1));
    board = players == 1 ? "tolvanecomputer" : "tolvane";
    desktop.sounds.clear();
  }

  platform::Widget& at(std::string_view name) {
    platform::Widget* found = desktop.widget(board, name);
    if (!found) throw std::out_of_range(std::string(name));
    return *found;
  }
  platform::Widget& die(std::size_t i) { return at(platform::indexed("Label4", i)); }
  platform::Widget& home(std::size_t i) { return at(platform::indexed("Label7", i)); }
  platform::Widget& icon(std::size_t i) { return at(platform::indexed("Image1", i)); }

  bool click(std::string_view name) { return desktop.click(board, name); }

  /// What the five dice show, one character a die; '-' for an empty face.
  std::string faces() {
    std::string shown;
    for (std::size_t i = 0; i < game::diceCount; ++i) shown += die(i).text.empty() ? "-" : die(i).text;
    return shown;
  }

  /// Makes the next throw draw these faces ("65466"); dice away from home keep theirs.
  void scriptThrow(std::string_view drawn) {
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      desktop.chance().script.push_back(0.015);  // Drawn once.
      const bool thrown = die(i).left == home(i).left && die(i).top == home(i).top;
      if (thrown) desktop.chance().script.push_back((drawn[i] - '1' + 0.5) / 6);
    }
  }

  /// Clicks Throw Dice for these faces and waits until they are all shown.
  void throwFaces(std::string_view drawn) {
    scriptThrow(drawn);
    click("Label2(3)");
    desktop.advance(aWholeThrow);
  }

  /// Drags die `i` with the left button so that its top left corner comes to (left, top), and lets go.
  void drag(std::size_t i, float left, float top) {
    const std::string name = platform::indexed("Label4", i);
    platform::MouseEvent mouse{.buttons = 1, .shift = 0, .x = left - die(i).left + die(i).width / 2,
                               .y = top - die(i).top + die(i).height / 2};
    desktop.moveMouse(board, name, mouse);
    desktop.releaseMouse(board, name, mouse);
  }
  void dragToIcon(std::size_t i, game::IconKind kind) {
    const platform::Widget& target = icon(static_cast<std::size_t>(kind));
    drag(i, target.left + 30, target.top - 45);
  }

  /// Die 0 to SHIP, die 1 to CAPTAIN, and so on to CARGO.
  void dragAllToIcons() {
    for (std::size_t i = 0; i < game::diceCount; ++i) dragToIcon(i, static_cast<game::IconKind>(i));
  }
};

}  // namespace tests
