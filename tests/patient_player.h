// A player who goes on from wherever the program stands, and always gets to the end of a game.
#pragma once

#include "simulated_program.h"

namespace tests {

class PatientPlayer {
 public:
  enum class Plays { ByMouse, ByKeys };

  explicit PatientPlayer(SimulatedProgram& program) : program_(program), desktop_(program.desktop) {}

  /// Lets go of what the mouse holds.
  void letGo() {
    for (const auto& screen : desktop_.openScreens()) {
      desktop_.releaseMouse(*screen, {}, platform::leftButton);
    }
    desktop_.advance(1000);  // What follows is no double click.
  }

  /// Goes a step on towards the end of the game on the board, or of a new one for so many players; where
  /// nothing but rules is open, towards the end of the program. Whether there was nothing to do but wait.
  bool step(int players, Plays plays) {
    byKeys_ = plays == Plays::ByKeys;
    if (!findBoard()) {
      openNext(players);
    } else if (handingOver() || rolling() || computerToPlay()) {
      desktop_.advance(1000);
      return true;
    } else if (!gameOver()) {
      takeTurn();
    }
    return false;
  }

  /// Whether a board is open; it is then the program's.
  bool findBoard() {
    program_.board = desktop_.find("tolvane") ? "tolvane" : "tolvanecomputer";
    return desktop_.find(program_.board) != nullptr;
  }

  bool gameOver() { return findBoard() && program_.at("Label6").text == "END OF GAME"; }

  /// A turn was over, and the next seat's has not begun.
  bool handingOver() { return counts(0); }
  bool rolling() { return counts(2) || counts(3); }
  bool computerToPlay() const {
    return program_.board == "tolvanecomputer" && program_.state.currentSeat == 1;
  }

 private:
  bool counts(std::size_t timer) { return desktop_.find(program_.board)->timers()[timer]->enabled(); }

  bool atHome(std::size_t die) { return game::samePlace(program_.die(die), program_.home(die)); }

  void press(std::string_view screen, char key) { desktop_.pressKey(screen, platform::Key{key}); }

  void openNext(int players) {
    const auto number = static_cast<std::size_t>(players);
    for (const char* page : {"Wembickrules", "Wembickrules2", "Wembickrules2b"}) {
      byKeys_ ? desktop_.pressKey(page, platform::Key::Escape) : void(desktop_.click(page, "Label3(0)"));
    }
    if (byKeys_) {
      press("Startplay2", static_cast<char>('0' + players));
      desktop_.pressKey("Titlefrm", platform::Key::Return);
      desktop_.pressKey("Titlefrm", platform::Key::Tab);  // From a game to restart where there is none.
    } else {
      desktop_.click("Startplay2", platform::indexed("Label1", number - 1));
      desktop_.click("Titlefrm", "Label5");
    }
  }

  void takeTurn() {
    if (program_.places() != "hhhhh") byKeys_ ? gatherByKeys() : gather();
    const std::string faces = program_.faces();
    if (std::string_view("654").find_first_not_of(faces) != std::string_view::npos) {
      throwDice();
    } else if (byKeys_) {
      for (const char face : "654" + faces) press(program_.board, face);
    } else {
      for (std::size_t icon = 0; icon < game::icons.size(); ++icon) fill(static_cast<game::IconKind>(icon));
    }
  }

  void throwDice() {
    const platform::Widget& button = program_.at("Label2(3)");
    const platform::MouseEvent there{platform::leftButton, button.left + 60, button.top + 60};
    byKeys_ ? press(program_.board, 'T') : desktop_.drag(program_.board, there, there);
  }

  // Drags the dice home. One can lie beneath others, so it is taken hold of all over.
  void gather() {
    for (std::size_t die = 0; die < game::diceCount; ++die) {
      const platform::Widget& lying = program_.die(die);
      const platform::Widget& home = program_.home(die);
      for (int place = 0; place < 25 && !atHome(die); ++place) {
        const int row = place / 5;
        desktop_.drag(program_.board,
                      {platform::leftButton, lying.left + 240 * static_cast<float>(place % 5),
                       lying.top + 240 * static_cast<float>(row)},
                      {platform::leftButton, home.left + 300, home.top + 300});
      }
    }
  }

  // Picks up each die and puts it down where it is, which sends it home.
  void gatherByKeys() {
    const platform::Screen& board = *desktop_.find(program_.board);
    desktop_.pressKey(program_.board, platform::Key::Escape);
    for (int stop = 0; stop < 5 && !(board.focus() && board.focus()->name.starts_with("Label4")); ++stop) {
      desktop_.pressKey(program_.board, platform::Key::Tab);
    }
    for (std::size_t die = 0; die < game::diceCount; ++die)
      desktop_.pressKey(program_.board, platform::Key::Left);
    for (std::size_t die = 0; die < game::diceCount; ++die) {
      for (int time = 0; time < 2 && !atHome(die); ++time) press(program_.board, ' ');
      desktop_.pressKey(program_.board, platform::Key::Right);
    }
  }

  // Drags the first die there that the icon takes.
  void fill(game::IconKind kind) {
    std::size_t die = 0;
    while (die < game::diceCount && !(atHome(die) && game::accepts(kind, program_.die(die).text, false)))
      ++die;
    if (die < game::diceCount) program_.dragToIcon(die, kind);
  }

  SimulatedProgram& program_;
  platform::SimulatedDesktop& desktop_;
  bool byKeys_ = false;
};

}  // namespace tests
