// How evenly dice roll and glide, and how soon a dragged die is where the pointer is, on a real board. Run it
// on the display to be measured, from the repository's root: build/release/throw_timing

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "app/register_screens.h"
#include "platform/qt/qt_desktop.h"
#include "screens/shell/screen_names.h"

namespace {

using Times = std::vector<double>;  // Milliseconds.

double since(const QElapsedTimer& clock) {
  return static_cast<double>(clock.nsecsElapsed()) / 1e6;
}

void report(const char* what, Times times) {
  std::sort(times.begin(), times.end());
  std::printf("%s: %zu times, median %.2f ms, 99 %% within %.2f ms, longest %.2f ms\n", what, times.size(),
              times[times.size() / 2], times[times.size() * 99 / 100], times.back());
}

void wait(int milliseconds) {
  QEventLoop loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

class Board {
 public:
  Board(std::string_view screen, game::GameOptions options, game::GameState state)
      : options_(options), state_(state) {
    app::registerScreens(desktop_, options_, state_);
    desktop_.start(screen);
    screen_ = desktop_.find(screen);
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName().toStdString() == screen) window_ = top;
    }
    wait(500);
  }

  void throwDice() { desktop_.click(at("Label2(3)")); }

  /// From tick to tick of a timer; a pause of 200 ms or more is none of its intervals.
  Times intervals(std::size_t timer, const std::function<void()>& play) {
    Times passed;
    QElapsedTimer clock;
    clock.start();
    std::function<void()>& onTick = screen_->timers()[timer]->onTick;
    const std::function<void()> tick = onTick;
    onTick = [&] {
      if (const double interval = since(clock); interval < 200) passed.push_back(interval);
      clock.restart();
      tick();
    };
    play();
    onTick = tick;
    return passed;
  }

  /// From a move of the mouse with a die in hand until the display shows the die there.
  Times drag(int moves) {
    constexpr int left = 80;
    constexpr int step = 60;  // Nearly a die, so that no place shows it before and after.
    const platform::Widget& die = at("Label4(0)");
    const QPoint home(platform::qt::pixels(die.left) + 32, platform::qt::pixels(die.top) + 32);
    const QRgb colour = qRgb(die.background->red, die.background->green, die.background->blue);
    send(QEvent::MouseButtonPress, home);
    Times passed;
    for (int move = 0; move < moves; ++move) {
      const int turn = move % 12;
      const QPoint to(left, 100 + step * std::min(turn, 12 - turn));
      const QPoint seen = window_->mapToGlobal(to + QPoint(-25, turn <= 6 ? 25 : -25));
      QElapsedTimer clock;
      clock.start();
      send(QEvent::MouseMove, to);
      while (window_->screen()->grabWindow(0, seen.x(), seen.y(), 1, 1).toImage().pixel(0, 0) != colour) {
        QCoreApplication::processEvents();
      }
      passed.push_back(since(clock));
      wait(10);
    }
    send(QEvent::MouseMove, home);
    send(QEvent::MouseButtonRelease, home);
    return passed;
  }

 private:
  platform::Widget& at(std::string_view name) {
    const auto widgets = screen_->widgets();
    return **std::find_if(widgets.begin(), widgets.end(),
                          [name](const platform::Widget* widget) { return widget->name == name; });
  }

  void send(QEvent::Type type, QPoint place) {
    const bool moves = type == QEvent::MouseMove;
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, window_->mapToGlobal(place), moves ? Qt::NoButton : Qt::LeftButton,
                      held ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(window_, &event);
  }

  game::GameOptions options_;
  game::GameState state_;
  platform::qt::QtDesktop desktop_;
  platform::Screen* screen_ = nullptr;
  QWidget* window_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  constexpr std::size_t rollTimer = 3;
  constexpr std::size_t glideTimer = 6;
  {
    Board board(shell::board, {.playerCount = 4, .soundOn = 1}, {});
    report("A roll's steps, 5 ms each", board.intervals(rollTimer, [&] {
      for (int i = 0; i < 3; ++i) {
        board.throwDice();
        wait(2500);
        if (i == 0) report("A drag, from pointer to pixel", board.drag(500));
      }
    }));
  }
  // The computer's turn in a game that was left.
  Board board(shell::computerBoard,
              {.playerCount = 2, .soundOn = 1, .computerOpponent = 1, .restoreSavedGame = 1},
              {.currentSeat = 1, .roundNumber = 1});
  report("A glide's steps, 20 ms each", board.intervals(glideTimer, [] { wait(25000); }));
}
