// The whole program on a simulated desktop, driven by what a player does.
#pragma once

#include <algorithm>
#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/register_screens.h"
#include "game/setting_aside.h"
#include "game/state.h"
#include "platform/simulated/simulated_desktop.h"

namespace tests {

inline constexpr int aWholeThrow = 2100;  // Milliseconds; the first throw of a board takes 2005.

/// The words of a table written as text, row by row; "-" stands for no word, '+' for a blank.
template <std::size_t columns>
std::vector<std::array<std::string, columns>> rows(const char* text) {
  std::vector<std::array<std::string, columns>> table;
  std::istringstream words(text);
  std::size_t count = 0;
  for (std::string word; words >> word; ++count) {
    if (count % columns == 0) table.emplace_back();
    std::replace(word.begin(), word.end(), '+', ' ');
    table.back()[count % columns] = word == "-" ? "" : word;
  }
  if (count % columns != 0) throw std::invalid_argument("a row is too short");
  return table;
}

/// An empty folder that is the current one for as long as this lives.
struct EmptyFolder {
  std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::path made =
      std::filesystem::temp_directory_path() / ("tolvane-test-" + std::to_string(std::random_device()()));

  EmptyFolder() {
    std::filesystem::create_directory(made);
    std::filesystem::current_path(made);
  }
  ~EmptyFolder() {
    std::filesystem::current_path(before);
    std::filesystem::remove_all(made);
  }
};

class SimulatedProgram {
 public:
  game::GameOptions options;
  game::GameState state;
  platform::SimulatedDesktop desktop;
  std::string board;  // The open board; `openBoard` sets it.

  /// The program on its title screen.
  SimulatedProgram() {
    app::registerScreens(desktop, options, state);
    desktop.start("Titlefrm");
  }

  explicit SimulatedProgram(int players) : SimulatedProgram() { openBoard(players); }

  /// From the title screen to a fresh board; sounds asked for on the way are forgotten.
  void openBoard(int players) {
    desktop.click("Titlefrm", "Label5");
    desktop.click("Startplay2", platform::indexed("Label1", static_cast<std::size_t>(players) - 1));
    board = players == 1 ? "tolvanecomputer" : "tolvane";
    desktop.sounds.clear();
  }

  platform::Widget& at(std::string_view name) { return *desktop.widget(board, name); }
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

  /// The mouse over the middle of die `i`, with these buttons held.
  platform::MouseEvent middleOf(std::size_t i, int buttons = 1) {
    return {buttons, die(i).left + die(i).width / 2, die(i).top + die(i).height / 2};
  }

  /// Drags die `i` with the left button so that its top left corner comes to (left, top), and lets go.
  void drag(std::size_t i, float left, float top) {
    desktop.drag(board, middleOf(i), {1, left + die(i).width / 2, top + die(i).height / 2});
  }

  /// Drags each die, from the first, to the icon of the index that stands for it ("00123"); '-' leaves it.
  void dragDice(std::string_view icons) {
    for (std::size_t i = 0; i < icons.size(); ++i) {
      if (icons[i] == '-') continue;
      const platform::Widget& target = icon(static_cast<std::size_t>(icons[i] - '0'));
      drag(i, target.left + 30, target.top - 45);
    }
  }

  /// Where the dice lie, one character a die: the index of its icon, 'h' at home, '?' elsewhere.
  std::string places() {
    std::string shown;
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      std::size_t k = 0;
      while (k < game::icons.size() && !game::samePlace(die(i), icon(k))) ++k;
      shown += game::samePlace(die(i), home(i)) ? "h" : k == game::icons.size() ? "?" : std::to_string(k);
    }
    return shown;
  }

  /// What the players see: "TURN OVER, ROUND 1 OF 4, THROW 2, 65432 01234, hint, 5 SCORED, 5 0", the last
  /// being the totals; of the throw counter, the hint and the score only what is shown.
  std::string view() {
    std::string seen = at("Label1").text + ", " + at("Label6").text + ", ";
    if (at("Label8").visible) seen += at("Label8").text + ", ";
    seen += faces() + " " + places() + ",";
    if (at("Label10").visible) seen += " hint,";
    if (at("Label9").visible) seen += " " + at("Label9").text + ",";
    for (const char* total : {"Label5(0)", "Label5(1)", "Label5(2)", "Label5(3)"}) {
      if (at(total).visible) seen += " " + at(total).text;
    }
    return seen;
  }

  /// The sounds asked for since this was last called, in order: "key click".
  std::string heard() {
    std::string names;
    for (const std::string& path : std::exchange(desktop.sounds, {})) {
      names += (names.empty() ? "" : " ") + path.substr(4, path.size() - 8);  // Of wav\NAME.wav.
    }
    return names;
  }

  /// The open screens, the one in front last: "Grey Startplay2".
  std::string screens() {
    std::string names;
    for (const auto& screen : desktop.openScreens()) names += (names.empty() ? "" : " ") + screen->name();
    return names;
  }

  /// What the dice show in the next milliseconds, from each change on, and how often they were rolled, all of
  /// them together: "250 33333; 1000 13333; 1005 times". Rolling dice show a 3.
  std::string watchDice(int milliseconds) {
    constexpr std::size_t enough = 5000;
    desktop.chance().script.assign(enough, 0.4);
    std::string seen;
    std::string before = faces();
    for (int time = 1; time <= milliseconds; ++time) {
      desktop.advance(1);
      if (faces() != before) seen += std::to_string(time) + " " + faces() + "; ";
      before = faces();
    }
    seen += std::to_string(enough - desktop.chance().script.size()) + " times";
    desktop.chance().script.clear();
    return seen;
  }
};

}  // namespace tests
