// Takes the three pictures of the game that its own rules show: the options screen, the board in mid-turn,
// and the icons with the dice of the example. art/build runs it offscreen at a high scale and reduces what it
// writes. Usage, from the repository's root: capture FOLDER

#include <QApplication>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <string>

#include "app/register_screens.h"
#include "platform/qt/qt_desktop.h"

namespace {

class Photographer {
 public:
  explicit Photographer(QString folder) : folder_(std::move(folder)) {
    app::registerScreens(desktop_, options_, state_);
  }

  void open(std::string_view screen) {
    desktop_.start(screen);
    screen_ = desktop_.find(screen);
  }

  platform::Widget& at(std::string_view name) {
    const auto widgets = screen_->drawingOrder();
    return **std::find_if(widgets.begin(), widgets.end(),
                          [name](const platform::Widget* widget) { return widget->name == name; });
  }

  void show(std::string_view name, bool visible) {
    desktop_.handle([&] { at(name).visible = visible; });
  }

  /// Shows these faces; a digit in `icons` says on which icon the die lies, '-' that it is at home.
  void layDice(std::string_view faces, std::string_view icons) {
    desktop_.handle([&] {
      at("Label8").visible = at("Label10").visible = true;
      for (std::size_t i = 0; i < faces.size(); ++i) {
        platform::Widget& die = at(platform::indexed("Label4", i));
        die.text = faces[i];
        if (icons[i] == '-') continue;
        const platform::Widget& icon = at("Image1(" + std::string(1, icons[i]) + ")");
        die.left = icon.left;
        die.top = icon.top;
      }
    });
  }

  /// Writes a part of the screen, in pixels; all of it where none is given.
  void take(const QString& name, QRect part = QRect(0, 0, -1, -1)) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() != QString::fromStdString(screen_->name())) continue;
      window->grab(part).save(folder_ + "/" + name + ".png");
    }
  }

 private:
  QString folder_;
  game::GameOptions options_{.playerCount = 4, .hideDesktop = 1};
  game::GameState state_;
  platform::qt::QtDesktop desktop_;
  platform::Screen* screen_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  if (argc != 2) return 1;
  Photographer photographer(QString::fromLocal8Bit(argv[1]));

  photographer.open("Startplay2");
  photographer.show("Check3", true);  // Most displays are wide enough for it, the one offscreen is not.
  photographer.take("start");

  photographer.open("tolvane");
  photographer.at("Label8").text = "THROW 2";
  photographer.layDice("64251", "02---");
  photographer.take("board");
  photographer.layDice("64553", "02134");
  photographer.show("Image2", false);  // The logo would reach into the picture.
  photographer.take("example", QRect(13, 80, 291, 417));
}
