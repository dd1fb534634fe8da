// The program's real windows, offscreen: run at several scales.

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QMetaEnum>
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

/// Without the fonts the boxes were measured for, a text fits its box in smaller letters.
void expectFits(const Widget& widget) {
  SCOPED_TRACE(widget.name + ": " + widget.text);
  QTextLayout layout;
  const qreal height = platform::qt::layOutText(layout, widget);
  EXPECT_LE(height, widget.height / 15);
  for (int i = 0; i < layout.lineCount(); ++i)
    EXPECT_LE(layout.lineAt(i).naturalTextWidth(), widget.width / 15);
  const bool otherFonts = qEnvironmentVariableIsSet("FONTCONFIG_FILE");
  const int designed = platform::qt::fontFor(widget.font).pixelSize();
  EXPECT_TRUE(otherFonts || widget.text.empty() || layout.font().pixelSize() == designed);
}

TEST_F(Program, EveryTextFitsItsBox) {
  const std::multimap<std::string, std::string> later{// What a board comes to show.
                                                      {"Label1", "MAGENTA TO PLAY"},
                                                      {"Label1", "MAGENTA HAS WON!"},
                                                      {"Label6", "END OF GAME"},
                                                      {"Label8", "THROW 3"},
                                                      {"Label9", "12 SCORED"},
                                                      {"Label4(0)", "6"},
                                                      {"Label5(0)", "48"}};
  options.playerCount = 4;
  for (const char* screen : {"Titlefrm", "Startplay2", "tolvane", "tolvanecomputer", "Wembickrules",
                             "Wembickrules2", "Wembickrules2b"}) {
    open(screen);
    for (const Widget* widget : desktop.find(screen)->drawingOrder()) expectFits(*widget);
  }
  for (Widget* widget : desktop.find("tolvane")->widgets()) {
    const auto [from, to] = later.equal_range(widget->name);
    for (auto text = from; text != to; ++text) {
      widget->text = text->second;
      expectFits(*widget);
    }
  }
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
  EXPECT_EQ(drawn.pixelColor(0, 0), Qt::blue);
  EXPECT_EQ(drawn.pixelColor(thick - 1, drawn.height() / 2), Qt::black);
  EXPECT_EQ(drawn.pixelColor(thick, drawn.height() / 2), Qt::blue);
  EXPECT_EQ(drawn.pixelColor(drawn.width() / 2, drawn.height() - 1), Qt::black);
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
  for (const auto& [key, scanCode, modifiers, held, expected] : std::initializer_list<
           std::tuple<int, quint32, Qt::KeyboardModifiers, bool, std::optional<platform::Key>>>{
           {Qt::Key_Eacute, two, {}, false, platform::Key{'2'}},
           {0x435, t, {}, false, platform::Key::T},
           {Qt::Key_D, t, {}, false, platform::Key::D},
           {Qt::Key_T, t, Qt::ControlModifier, false, std::nullopt},
           {Qt::Key_T, t, {}, true, std::nullopt},
           {Qt::Key_Backtab, 0, Qt::ShiftModifier, false, platform::Key::BackTab},
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
  const std::string parts = told(reader);
  EXPECT_EQ(std::count(parts.begin(), parts.end(), '\n'), 18);
  EXPECT_TRUE(parts.find(R"(StaticText: ROUND 1 OF 4
Button (here): Throw Dice
ListItem: die 1, not thrown
ListItem: die 2, not thrown
)") != std::string::npos)
      << parts;
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
