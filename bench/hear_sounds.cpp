// Asks the desktop for every sound, one after the other, and last for one that cuts off another; hear_test.py
// listens.

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <cstdio>

#include "platform/qt/qt_desktop.h"
#include "screens/shell/playwav.h"

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  platform::qt::QtDesktop desktop;
  struct Request {
    std::string_view sound;
    unsigned long wait;  // Milliseconds until the next.
  };
  qint64 longest = 0;
  for (const Request& request : std::initializer_list<Request>{{sounds::click, 600},
                                                               {sounds::click, 600},
                                                               {sounds::click1, 600},
                                                               {sounds::key, 700},
                                                               {sounds::cupdice, 2400},
                                                               {sounds::shipbell, 2900},
                                                               {sounds::fourBells, 4200},
                                                               {sounds::klaxon, 2200},
                                                               {sounds::splash, 2400},
                                                               {sounds::divingBoard, 2200},
                                                               {sounds::dive, 2400},
                                                               {sounds::aooga, 2400},
                                                               {sounds::cupdice, 500},
                                                               {sounds::shipbell, 2900}}) {
    QElapsedTimer clock;
    clock.start();
    shell::playwav(desktop, request.sound);
    longest = std::max(longest, clock.nsecsElapsed());
    QThread::msleep(request.wait);
  }
  std::printf("%.3f\n", static_cast<double>(longest) / 1e6);
}
