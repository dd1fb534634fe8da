// What the game costs without a display.

#include <benchmark/benchmark.h>

#include "app/register_screens.h"
#include "platform/simulated/simulated_desktop.h"

namespace {

struct Board {
  game::GameOptions options{.playerCount = 2};
  game::GameState state;
  platform::SimulatedDesktop desktop;
  explicit Board(const char* name) {
    app::registerScreens(desktop, options, state);
    desktop.start(name);
  }
};

void throwAndReveal(benchmark::State& run) {
  Board board("tolvane");
  while (run.KeepRunning()) {
    board.desktop.click("tolvane", "Label2(3)");
    board.desktop.advance(2100);
    board.desktop.click("tolvane", "Label2(4)");  // New Game: the next throw is a first one again.
    board.desktop.advance(1);
  }
}
BENCHMARK(throwAndReveal);

void openBoard(benchmark::State& run) {
  Board board("Titlefrm");
  while (run.KeepRunning()) {
    board.desktop.start("tolvane");
    board.desktop.closeWindow("tolvane");
  }
}
BENCHMARK(openBoard);

void wholeComputerTurn(benchmark::State& run) {
  while (run.KeepRunning()) {
    Board board("Titlefrm");
    board.options.restoreSavedGame = 1;
    board.state = {.currentSeat = 1, .roundNumber = 1, .seatScore = {}};
    board.desktop.start("tolvanecomputer");
    while (board.state.currentSeat == 1) board.desktop.advance(1000);
  }
}
BENCHMARK(wholeComputerTurn);

}  // namespace
