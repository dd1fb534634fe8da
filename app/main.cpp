#include <QApplication>
#include <QIcon>

#include "app/register_screens.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/qt_desktop.h"
#include "screens/shell/screen_names.h"

int main(int argc, char** argv) {
  // The game places and stacks its own windows, which only X11 lets it do; Wayland is better than nothing.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  }
  platform::qt::Accessibility::letReadersComeLater();
  const QApplication application(argc, argv);
  QIcon icon;
  for (const char* size : {"16", "32", "48", "64"}) icon.addFile(QStringLiteral(":/icon/%1.png").arg(size));
  QApplication::setWindowIcon(icon);
  game::GameOptions options;
  game::GameState state;
  platform::qt::QtDesktop desktop;
  app::registerScreens(desktop, options, state);
  desktop.start(shell::titleScreen);
  return QApplication::exec();
}
