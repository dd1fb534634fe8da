// The program's real windows, offscreen: run at several scales.

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QMetaEnum>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <map>
#include <tuple>

#include "app/register_screens.h"
#include "platform/qt/keys.h"
#include "platform/qt/qt_desktop.h"

namespace {

using platform::Widget;

class Program : public testing::Test {
 protected:
  game::GameOptions options;
  game::GameState state;
  platform::qt::QtDesktop desktop;

  Program() { app::registerScreens(desktop, options, state); }

  QWidget& window(std::string_view screen) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName().toStdString() == screen && top->isVisible()) return *top;
    }
    throw std::out_of_range(std::string(screen));
  }
  QWidget& view(std::string_view screen, const char* name) {
    return *window(screen).findChild<QWidget*>(QString::fromUtf8(name));
  }
  QWidget& open(std::string_view screen) {
    desktop.start(screen);
    QCoreApplication::processEvents();  // It learns of its frame when it is there.
    return window(screen);
  }
  QWidget& openBoard(int players) {
    options.playerCount = players;
    return open("tolvane");
  }
};

/// The texts a widget of a board can come to show, besides the one it opens with.
const std::map<std::string, std::vector<std::string>> laterTexts{
    {"Label1", {"MAGENTA TO PLAY", "TURN OVER", "MAGENTA HAS WON!", "ORANGE HAS WON!", "IT'S A DRAW"}},
    {"Label6", {"END OF GAME"}},
    {"Label8", {"THROW 3"}},
    {"Label9", {"12 SCORED"}},
    {"Label4(0)", {"6"}},
    {"Label5(0)", {"48"}}};

TEST_F(Program, EveryTextFitsItsBox) {
  // Without the fonts the boxes were measured for, it does so in smaller letters.
  const bool otherFonts = qEnvironmentVariableIsSet("FONTCONFIG_FILE");
  options.playerCount = 4;
  for (const char* screen : {"Titlefrm", "Startplay2", "tolvane", "tolvanecomputer", "Wembickrules",
                             "Wembickrules2", "Wembickrules2b"}) {
    const bool board = std::string_view(screen).starts_with("tolvane");
    open(screen);
    for (const Widget* widget : desktop.find(screen)->drawingOrder()) {
      std::vector<std::string> texts{widget->text};
      const auto later = laterTexts.find(widget->name);
      if (board && later != laterTexts.end())
        texts.insert(texts.end(), later->second.begin(), later->second.end());
      for (const std::string& text : texts) {
        if (text.empty()) continue;
        Widget shown = *widget;
        shown.text = text;
        QTextLayout layout;
        const qreal height = platform::qt::layOutText(layout, shown);
        qreal width = 0;
        for (int i = 0; i < layout.lineCount(); ++i)
          width = std::max(width, layout.lineAt(i).naturalTextWidth());
        SCOPED_TRACE(screen + (' ' + widget->name) + ": " + text);
        EXPECT_LE(width, widget->width / 15);
        EXPECT_LE(height, widget->height / 15);
        const int designed = platform::qt::fontFor(widget->font).pixelSize();
        EXPECT_TRUE(otherFonts || layout.font().pixelSize() == designed);
      }
    }
  }
}

TEST_F(Program, WidgetsStandAtTheirPlacesInTheirColours) {
  QWidget& board = openBoard(4);
  EXPECT_EQ(board.frameGeometry().size(), QSize(800, 600));
  EXPECT_EQ(view("tolvane", "Label4(4)").geometry(), QRect(672, 288, 65, 65));
  EXPECT_EQ(view("tolvane", "Label2(3)").geometry(), QRect(352, 232, 387, 41));
  EXPECT_FALSE(view("tolvane", "Label8").isVisible());
  const QImage drawn = board.grab().toImage().scaled(board.size());
  for (const auto& [x, y, colour] : std::initializer_list<std::tuple<int, int, const char*>>{
           {5, 595, "#294189"},       // The board itself.
           {357, 293, "#ff8000"},     // A die.
           {175, 300, "#294189"}}) {  // The frame of the icons is open inside.
    EXPECT_EQ(drawn.pixelColor(x, y).name(), colour);
  }
  const QImage icon = view("tolvane", "Image1(0)").grab().toImage();
  EXPECT_NE(icon.pixelColor(icon.rect().center()).name(), "#294189") << "The picture of SHIP is not there.";
}

TEST_F(Program, LinesAreWholePixelsOfTheDisplay) {
  QWidget& board = openBoard(4);
  const QImage drawn = board.grab().toImage();
  const qreal scale = board.devicePixelRatioF();
  for (const Widget* widget : desktop.find("tolvane")->widgets()) {
    if (!widget->visible || !widget->border || widget->background == widget->borderColour) continue;
    const QRect place = view("tolvane", widget->name.c_str()).geometry();
    const QPoint topLeft(qRound(place.left() * scale), qRound(place.top() * scale));
    const QPoint end(qRound((place.left() + place.width()) * scale) - 1,
                     qRound((place.top() + place.height()) * scale) - 1);
    const QPoint inside = topLeft + (end - topLeft) / 8;  // Beside the text.
    const QRgb line = qRgb(widget->borderColour.red, widget->borderColour.green, widget->borderColour.blue);
    const std::pair<QPoint, QPoint> inwards[] = {{{topLeft.x(), inside.y()}, {1, 0}},
                                                 {{inside.x(), topLeft.y()}, {0, 1}},
                                                 {{end.x(), inside.y()}, {-1, 0}},
                                                 {{inside.x(), end.y()}, {0, -1}}};
    for (const auto& [at, step] : inwards) {
      // From one pixel outside: the box begins with its line, and that is all there is of it.
      EXPECT_NE(drawn.pixel(at - step), line) << widget->name;
      int thickness = 0;
      while (drawn.pixel(at + step * thickness) == line) ++thickness;
      EXPECT_EQ(thickness, std::max(1, qRound(widget->borderWidth / 15 * scale))) << widget->name;
    }
  }
}

TEST_F(Program, APageHasALineAroundThatLeavesItsNumberRoom) {
  const QImage drawn = open("Wembickrules").grab().toImage();
  const int thick = qRound(drawn.devicePixelRatio());
  const QPoint middle = QPoint(drawn.width(), drawn.height()) / 2;
  for (const int at : {0, thick - 1}) {
    EXPECT_EQ(drawn.pixelColor(at, middle.y()), Qt::black);
    EXPECT_EQ(drawn.pixelColor(middle.x(), drawn.height() - 1 - at), Qt::black);
  }
  EXPECT_EQ(drawn.pixelColor(thick, middle.y()), Qt::blue);
  EXPECT_EQ(drawn.pixelColor(0, 0), Qt::blue);
}

TEST_F(Program, APageBelievesItsPictureWithinReason) {
  const QString before = QDir::currentPath();
  const QTemporaryDir folder;
  QDir(folder.path()).mkdir("Images");
  QDir::setCurrent(folder.path());
  const QSize designed(189, 235);
  // The picture's pixels, dots per inch, format and how many bytes it lacks; then the size of its box, and
  // whether it is drawn.
  for (const auto& [pixels, dotsPerInch, format, missing, size, drawn] :
       std::initializer_list<std::tuple<QSize, int, const char*, int, QSize, bool>>{
           {{150, 100}, 96, "jpg", 0, {150, 100}, true},
           {{150, 100}, 192, "jpg", 0, {75, 50}, true},
           {{3000, 30}, 96, "jpg", 0, designed, true},
           {{5800, 5800}, 4800, "jpg", 0, designed, false},
           {{150, 100}, 96, "png", 0, designed, false},
           {{150, 100}, 96, "jpg", 2, designed, false}}) {
    SCOPED_TRACE(testing::Message() << pixels.width() << format << dotsPerInch << missing);
    QImage picture(pixels, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    picture.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    ASSERT_TRUE(picture.save("Images/start.jpg", format));
    QFile::resize("Images/start.jpg", QFile("Images/start.jpg").size() - missing);
    open("Wembickrules");
    const QImage shown = window("Wembickrules").grab(QRect(576, 288, 40, 40)).toImage();
    EXPECT_EQ(view("Wembickrules", "Image1").size(), size);
    EXPECT_EQ(shown.pixelColor(shown.rect().center()).red() > 200, drawn);
    window("Wembickrules").close();
    QCoreApplication::processEvents();  // A window goes in its turn.
  }
  QDir::setCurrent(before);
}

/// Notes the widgets that are painted.
class PaintWatcher final : public QObject {
 public:
  std::map<std::string, int> painted;
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++painted[object->objectName().toStdString()];
    return false;
  }
};

TEST_F(Program, ARollRepaintsTheDiceAlone) {
  QWidget& board = openBoard(2);
  QTest::keyClick(&board, Qt::Key_T);
  QTest::qWait(400);
  PaintWatcher watcher;
  qApp->installEventFilter(&watcher);
  EXPECT_TRUE(QTest::qWaitFor([&] { return watcher.painted["Label4(4)"] > 10; }));
  for (const char* still : {"Label1", "Image1(0)", "Label5(0)", "Label2(3)", "Label3(0)"}) {
    EXPECT_EQ(watcher.painted[still], 0) << still;
  }
}

TEST(Keys, AreReadOnEveryKeyboard) {
  constexpr quint32 two = 11, t = 28;  // The keys' places.
  const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
  for (const auto& [key, scanCode, modifiers, held, expected] : std::initializer_list<
           std::tuple<int, quint32, Qt::KeyboardModifiers, bool, std::optional<platform::Key>>>{
           {Qt::Key_Eacute, two, {}, false, platform::Key{'2'}},
           {0x435, t, {}, false, platform::Key::T},
           {Qt::Key_D, t, {}, false, platform::Key::D},
           {Qt::Key_T, t, Qt::ControlModifier, false, std::nullopt},
           {Qt::Key_T, t, {}, true, std::nullopt},
           {Qt::Key_Backtab, 0, shift, false, platform::Key::BackTab},
           {Qt::Key_Enter, 0, Qt::KeypadModifier, false, platform::Key::Return},
           {Qt::Key_Space, 0, {}, true, std::nullopt},
           {Qt::Key_Left, 0, {}, true, platform::Key::Left}}) {
    const QKeyEvent press(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, {}, held);
    EXPECT_EQ(platform::qt::keyFrom(press), expected) << key << ' ' << scanCode;
  }
}

/// What a screen reader finds: a line for each part with its role and its name.
std::string told(QAccessibleInterface& window) {
  std::string all;
  for (int i = 0; i < window.childCount(); ++i) {
    QAccessibleInterface& part = *window.child(i);
    EXPECT_EQ(window.indexOfChild(&part), i);
    if (part.role() == QAccessible::StatusBar) continue;  // Holds what the game says; not to be seen.
    EXPECT_EQ(part.actionInterface()->actionNames().size(), part.state().focusable ? 2 : 0);
    all += QMetaEnum::fromType<QAccessible::Role>().valueToKey(part.role());
    all += (part.state().focused ? " (here): " : ": ") + part.text(QAccessible::Name).toStdString() + "\n";
  }
  return all;
}

TEST_F(Program, AReaderFindsTheBoardInItsOrder) {
  QWidget& board = openBoard(2);
  QTest::keyClick(&board, Qt::Key_Tab);
  // Whatever lies in front.
  QWidget& die = view("tolvane", "Label4(1)");
  const QPoint there = die.geometry().center();
  QMouseEvent over(QEvent::MouseMove, there, board.mapToGlobal(there), Qt::NoButton, {}, {});
  QApplication::sendEvent(&board, &over);
  EXPECT_TRUE(QTest::qWaitFor([&] { return board.isActiveWindow() && board.children().back() == &die; }));
  QAccessibleInterface& reader = *QAccessible::queryAccessibleInterface(&board);
  EXPECT_EQ(reader.text(QAccessible::Name), "Tolvane");
  EXPECT_EQ(told(reader), R"(StaticText: ORANGE TO PLAY
StaticText: ROUND 1 OF 4
Button (here): Throw Dice
ListItem: die 1, not thrown
ListItem: die 2, not thrown
ListItem: die 3, not thrown
ListItem: die 4, not thrown
ListItem: die 5, not thrown
ListItem: SHIP, takes a 6, empty
ListItem: CAPTAIN, takes a 5, empty
ListItem: MATE, takes a 4, empty
ListItem: CREW, takes any die, empty
ListItem: CARGO, takes any die, empty
StaticText: Orange 0
StaticText: Magenta 0
Button: New Game
Button: Exit
StaticText: Fair winds and a full hold!
)");
  // What a reader does in the player's place.
  const auto act = [&](const char* screen, const char* name, const QString& action) {
    QAccessible::queryAccessibleInterface(&view(screen, name))->actionInterface()->doAction(action);
  };
  open("Startplay2");
  act("Startplay2", "Check1", QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(&view("Startplay2", "Check1"))->state().checked);
  act("tolvane", "Label4(1)", QAccessibleActionInterface::pressAction());
  EXPECT_EQ(desktop.lastSaid(), "Throw the dice first.");
  EXPECT_EQ(desktop.find("tolvane")->focus()->name, "Label4(1)");
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
