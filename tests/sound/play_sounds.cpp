// Plays the sound files that are named on its input, a line each, and ends with it. Says how many
// milliseconds each call took ("call"), and when the player is alerted ("alert"). hear_test.py listens.

#include <QApplication>
#include <QElapsedTimer>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

#include "platform/qt/sound_player.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
  platform::qt::SoundPlayer player([] { std::puts("alert"); });
  const std::jthread input([&] {
    for (std::string path; std::getline(std::cin, path);) {
      QElapsedTimer clock;
      clock.start();
      player.play(path);
      std::printf("call %.3f\n", static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
  });
  return QApplication::exec();
}
