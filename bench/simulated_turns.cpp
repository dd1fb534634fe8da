// What the game costs without a display, and what the computer's turns come to when they are played.

#include <benchmark/benchmark.h>
#include <cmath>

#include "app/register_screens.h"
#include "game/table.h"
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
  Board board("Titlefrm");  // One for all turns: each desktop's chance begins alike.
  double sum = 0;
  double sumOfSquares = 0;
  while (run.KeepRunning()) {
    board.options.restoreSavedGame = 1;
    board.state = {.currentSeat = 1, .roundNumber = 1, .seatScore = {}};
    board.desktop.start("tolvanecomputer");
    while (board.state.currentSeat == 1) board.desktop.advance(1000);
    const double points = game::numberShown(board.desktop.widget("tolvanecomputer", "Label9")->text);
    sum += points;
    sumOfSquares += points * points;
    board.desktop.closeWindow("tolvanecomputer");
    board.desktop.sounds.clear();
  }
  const auto turns = static_cast<double>(run.iterations());
  const double mean = sum / turns;
  run.counters["points"] = mean;
  run.counters["standard_error"] = std::sqrt((sumOfSquares / turns - mean * mean) / (turns - 1));
}
BENCHMARK(wholeComputerTurn)->Iterations(200000);

}  // namespace
