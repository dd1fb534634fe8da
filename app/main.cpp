#include <QApplication>
#include <QDir>
#include <QFontMetricsF>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <future>

#include "app/register_screens.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/qt_desktop.h"
#include "platform/qt/views.h"
#include "platform/qt/window_system.h"
#include "screens/shell/screen_names.h"

using namespace std::chrono_literals;

namespace {

/// The one fatal message while Qt starts is that it reaches no display; Qt itself would abort with a core.
void endWithoutDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
  if (type != QtFatalMsg) return;
  std::fprintf(stderr,
               "Tolvane needs a display, and none answers (DISPLAY=\"%s\", WAYLAND_DISPLAY=\"%s\").\n",
               qgetenv("DISPLAY").constData(), qgetenv("WAYLAND_DISPLAY").constData());
  std::_Exit(EXIT_FAILURE);
}

/// Who unpacked the game has its files beside the program, whatever folder that is started in.
void goToFiles() {
  const QString beside = QApplication::applicationDirPath();
  if (!QDir().exists("Images") && QDir(beside).exists("Images")) QDir::setCurrent(beside);
}

void setIcon() {
  QIcon icon;
  for (const char* size : {"16", "32", "48", "64"}) icon.addFile(QStringLiteral(":/icon/%1.png").arg(size));
  QApplication::setWindowIcon(icon);
}

}  // namespace

int main(int argc, char** argv) {
  // Where the player may write no more, a write fails like any other; the sound library's too.
#ifdef SIGXFSZ
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  platform::qt::chooseWindowSystem();
  platform::qt::Accessibility::letReadersComeLater();
  const QtMessageHandler usual = qInstallMessageHandler(endWithoutDisplay);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  goToFiles();
  // Finding out which fonts there are takes a while; the first text would wait for it.
  const auto fonts =
      std::async(std::launch::async, [] { return QFontMetricsF(platform::qt::fontFor({})).height(); });
  QGuiApplication::setDesktopFileName(QStringLiteral("org.example.tolvane"));
  game::GameOptions options;
  game::GameState state;
  platform::qt::QtDesktop desktop;
  app::registerScreens(desktop, options, state);
  desktop.start(shell::titleScreen);
  QTimer::singleShot(100ms, setIcon);  // The window's first picture comes first.
  return QApplication::exec();
}
