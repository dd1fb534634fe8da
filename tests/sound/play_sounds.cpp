// Plays the sound files that are named on its input, a line each, and ends with it. Says how many
// milliseconds each call took ("call"), and when the player is alerted ("alert"). hear_test.py listens.

#include <QApplication>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <array>
#include <cstdio>
#include <string>
#include <unistd.h>

#include "platform/qt/sound_player.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  platform::qt::SoundPlayer player([] { std::puts("alert"); });
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  std::string asked;
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    std::array<char, 4096> block{};
    const ssize_t got = read(STDIN_FILENO, block.data(), block.size());
    if (got <= 0) return QApplication::quit();
    asked.append(block.data(), static_cast<std::size_t>(got));
    for (auto end = asked.find('\n'); end != std::string::npos; end = asked.find('\n')) {
      QElapsedTimer clock;
      clock.start();
      player.play(asked.substr(0, end));
      std::printf("call %.3f\n", static_cast<double>(clock.nsecsElapsed()) / 1e6);
      asked.erase(0, end + 1);
    }
  });
  return QApplication::exec();
}
