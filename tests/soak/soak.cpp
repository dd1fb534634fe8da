// Games by the thousand in one run of the program, without a display: how long they take, and whether any of
// their memory stays behind. Usage: soak [GAMES]
#include <chrono>
#include <fstream>
#include <iostream>
#include <unistd.h>

#include "patient_player.h"

namespace {

double megabytesInUse() {
  std::ifstream file("/proc/self/statm");
  double pages = 0;
  file >> pages >> pages;  // The second: those in memory.
  return pages * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

void playOneGame(tests::SimulatedProgram& program, int number) {
  tests::PatientPlayer player(program);
  const auto plays =
      number / 4 % 2 == 0 ? tests::PatientPlayer::Plays::ByMouse : tests::PatientPlayer::Plays::ByKeys;
  program.desktop.advance(1000);
  while (!player.gameOver()) player.step(1 + number % 4, plays);
  program.desktop.advance(10000);  // The winner flashes.
  program.click("Label2(2)");
  program.desktop.sounds.clear();
  program.desktop.said.clear();
  program.desktop.pointers.clear();
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): what is thrown ends it.
int main(int count, char** arguments) {
  const int games = count > 1 ? std::atoi(arguments[1]) : 100000;
  const tests::EmptyFolder folder;
  tests::SimulatedProgram program;
  double before = 0;
  const auto start = std::chrono::steady_clock::now();
  for (int number = 0; number < games; ++number) {
    if (number == games / 10) before = megabytesInUse();
    playOneGame(program, number);
  }
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
  const double after = megabytesInUse();
  std::cout << games << " games in " << seconds.count() << " s; " << before
            << " MB in use after the first tenth, " << after << " MB in the end\n";
  return after < before + 0.5 ? 0 : 1;
}
