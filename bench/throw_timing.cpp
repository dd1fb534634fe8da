// Throws the dice on a real board and prints when they rolled and came to rest, against the moments they
// should have. Run it on the display to be measured, from the repository's root: build/release/throw_timing

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "app/register_screens.h"
#include "platform/qt/qt_desktop.h"

namespace {

using Times = std::vector<double>;  // Milliseconds after the click.

void report(const char* which, Times& rolls, const Times& reveals, double firstReveal) {
  Times intervals;
  for (std::size_t i = 1; i < rolls.size(); ++i) intervals.push_back(rolls[i] - rolls[i - 1]);
  std::sort(intervals.begin(), intervals.end());
  std::printf("%s: %zu rolls, interval median %.3f ms, 99%% below %.3f ms, longest %.3f ms; reveals late by",
              which, rolls.size(), intervals[intervals.size() / 2], intervals[intervals.size() * 99 / 100],
              intervals.back());
  for (std::size_t i = 0; i < reveals.size(); ++i) {
    std::printf(" %.2f", reveals[i] - firstReveal - 250 * static_cast<double>(i));
  }
  std::printf(" ms\n");
}

void wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  game::GameOptions options{.playerCount = 4, .soundOn = 1};
  game::GameState state;
  platform::qt::QtDesktop desktop;
  app::registerScreens(desktop, options, state);
  desktop.start("tolvane");
  QElapsedTimer clock;
  clock.start();
  Times rolls;
  Times reveals;
  const auto record = [&clock](platform::Timer& timer, Times& times) {
    timer.onTick = [&clock, &times, tick = timer.onTick] {
      times.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
      tick();
    };
  };
  const auto timers = desktop.find("tolvane")->timers();
  record(*timers[2], reveals);
  record(*timers[3], rolls);
  QAbstractButton* button = nullptr;
  for (const QWidget* window : QApplication::topLevelWidgets()) {
    if (auto* found = window->findChild<QAbstractButton*>("Label2(3)")) button = found;
  }
  wait(500);
  for (const double firstReveal : {1000.0, 250.0, 250.0}) {
    rolls.clear();
    reveals.clear();
    clock.restart();
    button->click();
    std::printf("The click and all it draws and plays took %.2f ms. ",
                static_cast<double>(clock.nsecsElapsed()) / 1e6);
    wait(2500);
    report(firstReveal > 500 ? "first throw" : "later throw", rolls, reveals, firstReveal);
  }
}
