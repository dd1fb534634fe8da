// The least a program with Qt Widgets can do: what the start of the game is measured against.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QWidget window;
  window.setFixedSize(363, 438);
  window.show();
  return QApplication::exec();
}
