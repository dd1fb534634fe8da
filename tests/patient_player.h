// A player who goes on from wherever the program stands, and always gets to the end of a game.
#pragma once

#include "simulated_program.h"

namespace tests {

class PatientPlayer {
 public:
  explicit PatientPlayer(SimulatedProgram& program) : program_(program), desktop_(program.desktop) {}

  /// Goes on to the end of the game on the board, or of a new one for so many players; where nothing but rules
  /// is open, to the end of the program. False when the player is stuck.
  bool finish(int players) {
    letGo();
    constexpr int patience = 2000;  // Steps; four rounds of four turns take less than half of that.
    for (int step = 0; step < patience; ++step) {
      if (desktop_.ended || gameOver()) return true;
      if (findBoard()) {
        takeStep();
      } else {
        openNext(players);
      }
    }
    return false;
  }

  /// Whether a board is open; from then on it is the program's.
  bool findBoard() {
    program_.board = desktop_.find("tolvane") ? "tolvane" : "tolvanecomputer";
    return desktop_.find(program_.board) != nullptr;
  }

  bool gameOver() { return findBoard() && program_.at("Label6").text == "END OF GAME"; }

  /// A turn was over, and the next seat's has not begun.
  bool handingOver() { return counts(0); }
  bool rolling() { return counts(2) || counts(3); }
  bool computerToPlay() { return program_.board == "tolvanecomputer" && program_.state.currentSeat == 1; }

 private:
  bool counts(std::size_t timer) { return desktop_.find(program_.board)->timers()[timer]->enabled(); }

  void letGo() {
    for (const auto& screen : desktop_.openScreens()) {
      desktop_.releaseMouse(desktop_.now(), *screen, {}, platform::leftButton);
    }
    desktop_.advance(1000);  // What follows is no double click.
  }

  void openNext(int players) {
    if (desktop_.click("Titlefrm", "Label5")) return;
    if (desktop_.click("Startplay2", platform::indexed("Label1", static_cast<std::size_t>(players) - 1))) return;
    for (const char* page : {"Wembickrules", "Wembickrules2", "Wembickrules2b"}) desktop_.click(page, "Label3(0)");
  }

  void takeStep() {
    if (handingOver() || rolling() || computerToPlay()) {
      desktop_.advance(1000);
      return;
    }
    for (std::size_t die = 0; die < game::diceCount; ++die) gather(die);
    const std::string faces = program_.faces();
    if (std::string_view("654").find_first_not_of(faces) == std::string_view::npos) {
      for (std::size_t icon = 0; icon < game::icons.size(); ++icon) fill(static_cast<game::IconKind>(icon));
    } else {
      const platform::Widget& button = program_.at("Label2(3)");
      press({1, button.left + 60, button.top + 60}, {1, button.left + 60, button.top + 60});
    }
  }

  void press(platform::MouseEvent from, platform::MouseEvent to) { desktop_.drag(program_.board, from, to); }

  // Drags the die home. It can lie beneath others, so it is taken hold of all over.
  void gather(std::size_t die) {
    const platform::Widget& home = program_.home(die);
    const platform::Widget& lying = program_.die(die);
    for (int place = 0; place < 25 && !game::samePlace(lying, home); ++place) {
      press({1, lying.left + static_cast<float>(place % 5) * 240, lying.top + static_cast<float>(place / 5) * 240},
            {1, home.left + 300, home.top + 300});
    }
  }

  void fill(game::IconKind kind) {
    for (std::size_t die = 0; die < game::diceCount; ++die) {
      const bool home = game::samePlace(program_.die(die), program_.home(die));
      if (!home || !game::accepts(kind, program_.die(die).text, false)) continue;
      program_.dragToIcon(die, kind);
      return;
    }
  }

  SimulatedProgram& program_;
  platform::SimulatedDesktop& desktop_;
};

}  // namespace tests
