// Plays the sound files that are named on its input, a line each, and ends with it. Says what each call took
// ("call": milliseconds that passed and that were worked, and how often it waited for something), and when
// the player is alerted ("alert"). hear_test.py listens.

#include <QApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <array>
#include <cstdio>
#include <ctime>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

#include "platform/qt/sound_player.h"

namespace {

double workedMilliseconds() {
  timespec worked{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &worked);
  return static_cast<double>(worked.tv_sec) * 1e3 + static_cast<double>(worked.tv_nsec) / 1e6;
}

long waits() {
  rusage usage{};
  getrusage(RUSAGE_THREAD, &usage);
  return usage.ru_nvcsw;
}

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  platform::qt::SoundPlayer player;
  QObject::connect(&player, &platform::qt::SoundPlayer::failed, [] { std::puts("alert"); });
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  std::string asked;
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    std::array<char, 4096> block{};
    const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
    if (got <= 0) return QApplication::quit();
    asked.append(block.data(), static_cast<std::size_t>(got));
    for (auto end = asked.find('\n'); end != std::string::npos; end = asked.find('\n')) {
      const long waitsBefore = waits();
      const double workedBefore = workedMilliseconds();
      QElapsedTimer clock;
      clock.start();
      player.play(asked.substr(0, end));
      const double passed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
      std::printf("call %.3f %.3f %ld\n", passed, workedMilliseconds() - workedBefore, waits() - waitsBefore);
      asked.erase(0, end + 1);
    }
  });
  return QApplication::exec();
}
