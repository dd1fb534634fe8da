// The program's real windows, offscreen: run at several scales.

#include <QAccessible>
#include <QApplication>
#include <QDir>
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

constexpr int aWholeThrow = 2100;  // Milliseconds.

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
  void click(std::string_view screen, const char* name) {
    QTest::mouseClick(&view(screen, name), Qt::LeftButton);
    QCoreApplication::processEvents();  // A window hands on what it hears in its turn.
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
        EXPECT_LE(width, widget->width / 15) << screen << ' ' << widget->name << ": " << text;
        EXPECT_LE(height, widget->height / 15) << screen << ' ' << widget->name << ": " << text;
        EXPECT_TRUE(otherFonts ||
                    layout.font().pixelSize() == platform::qt::fontFor(widget->font).pixelSize())
            << screen << ' ' << widget->name << ": " << text;
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
  struct Spot {
    int x, y;
    const char* colour;
  };
  for (const Spot& spot : std::initializer_list<Spot>{{5, 595, "#294189"},            // The board itself.
                                                      {352 + 5, 288 + 5, "#ff8000"},  // A die.
                                                      {352, 288, "#000000"},          // Its border.
                                                      {355, 236, "#000000"},          // Throw Dice.
                                                      {169, 300, "#804000"},     // The frame of the icons...
                                                      {175, 300, "#294189"}}) {  // ...is open inside.
    EXPECT_EQ(drawn.pixelColor(spot.x, spot.y).name(), spot.colour) << spot.x << ',' << spot.y;
  }
  const QImage icon = view("tolvane", "Image1(0)").grab().toImage();
  EXPECT_NE(icon.pixelColor(icon.rect().center()).name(), "#294189") << "The picture of SHIP is not there.";
}

TEST_F(Program, LinesAreWholePixelsOfTheDisplay) {
  options.playerCount = 4;
  for (const char* screen : {"tolvane", "Startplay2"}) {
    const QWidget& shown = open(screen);
    const QImage drawn = window(screen).grab().toImage();
    const qreal scale = shown.devicePixelRatioF();
    const auto device = [scale](int at) { return qRound(at * scale); };
    for (const Widget* widget : desktop.find(screen)->widgets()) {
      const QRect place = view(screen, widget->name.c_str()).geometry();
      QPoint topLeft(device(place.left()), device(place.top()));
      QPoint bottomRight(device(place.left() + place.width()) - 1, device(place.top() + place.height()) - 1);
      const bool tick = widget->role == platform::Role::CheckBox;
      if (tick) {
        topLeft.ry() += (bottomRight.y() + 1 - topLeft.y() - device(15)) / 2;
        bottomRight = topLeft + QPoint(device(15) - 1, device(15) - 1);
      }
      if (!widget->visible || !(tick || widget->border) || widget->background == widget->borderColour)
        continue;
      const QPoint inside = topLeft + (bottomRight - topLeft) / 8;  // Beside text and tick.
      const QRgb line = qRgb(widget->borderColour.red, widget->borderColour.green, widget->borderColour.blue);
      const int designed = std::max(1, qRound(widget->borderWidth / 15 * scale));
      for (const auto& [at, step] :
           std::initializer_list<std::pair<QPoint, QPoint>>{{{topLeft.x(), inside.y()}, {1, 0}},
                                                            {{inside.x(), topLeft.y()}, {0, 1}},
                                                            {{bottomRight.x(), inside.y()}, {-1, 0}},
                                                            {{inside.x(), bottomRight.y()}, {0, -1}}}) {
        // From one pixel outside: the box begins with its line, and that is all there is of it.
        EXPECT_NE(drawn.pixel(at - step), line) << screen << ' ' << widget->name;
        int thickness = 0;
        while (drawn.pixel(at + step * thickness) == line) ++thickness;
        EXPECT_EQ(thickness, designed) << screen << ' ' << widget->name;
      }
    }
  }
}

TEST_F(Program, APageHasALineAroundThatLeavesItsNumberRoom) {
  const QImage drawn = open("Wembickrules").grab().toImage();
  const QRgb ground = qRgb(0, 0, 255);
  const QRgb line = qRgb(0, 0, 0);
  const int thick = qRound(drawn.devicePixelRatio());
  const QPoint edge(drawn.width() - 1, drawn.height() - 1);
  const QPoint middle = edge / 2;
  for (const auto& [at, step] :
       std::initializer_list<std::pair<QPoint, QPoint>>{{{0, middle.y()}, {1, 0}},
                                                        {{edge.x(), middle.y()}, {-1, 0}},
                                                        {{middle.x(), 0}, {0, 1}},
                                                        {{middle.x(), edge.y()}, {0, -1}}}) {
    EXPECT_EQ(drawn.pixel(at), line);
    EXPECT_EQ(drawn.pixel(at + step * (thick - 1)), line);
    EXPECT_EQ(drawn.pixel(at + step * thick), ground);
  }
  EXPECT_EQ(drawn.pixel(0, 0), ground);
}

TEST_F(Program, APageBelievesItsPictureWithinReason) {
  const QString before = QDir::currentPath();
  const QTemporaryDir folder;
  QDir(folder.path()).mkdir("Images");
  QDir::setCurrent(folder.path());
  const QSize designed(189, 235);
  enum Damage { None, CutShort, Rubbish };
  for (const auto& [pixels, dotsPerInch, format, damage, size, drawn] :
       std::initializer_list<std::tuple<QSize, int, const char*, Damage, QSize, bool>>{
           {{150, 100}, 96, "jpg", None, {150, 100}, true},
           {{150, 100}, 192, "jpg", None, {75, 50}, true},
           {{3000, 30}, 96, "jpg", None, designed, true},
           {{5800, 5800}, 4800, "jpg", None, designed, false},
           {{150, 100}, 96, "png", None, designed, false},
           {{150, 100}, 96, "jpg", CutShort, designed, false},
           {{150, 100}, 96, "jpg", Rubbish, designed, false}}) {
    QImage picture(pixels, QImage::Format_RGB32);
    picture.fill(Qt::red);
    picture.setDotsPerMeterX(qRound(dotsPerInch / 0.0254));
    picture.setDotsPerMeterY(qRound(dotsPerInch / 0.0254));
    ASSERT_TRUE(picture.save("Images/start.jpg", format));
    QFile file("Images/start.jpg");
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    if (damage == CutShort) file.resize(file.size() - 2);
    if (damage == Rubbish) {
      file.seek(file.size() - 9);
      file.write("\xFF\x4A");
    }
    file.close();
    open("Wembickrules");
    const QImage shown = window("Wembickrules").grab(QRect(576, 288, 40, 40)).toImage();
    EXPECT_EQ(view("Wembickrules", "Image1").size(), size)
        << pixels.width() << ' ' << dotsPerInch << ' ' << damage;
    EXPECT_EQ(shown.pixelColor(shown.rect().center()).red() > 200, drawn)
        << pixels.width() << format << damage;
    window("Wembickrules").close();
    QCoreApplication::processEvents();  // A window goes in its turn.
  }
  QDir::setCurrent(before);
}

TEST_F(Program, TheMouseGrabsWhatItIsOver) {
  QWidget& board = openBoard(2);
  const auto at = [&](const char* name) { return view("tolvane", name).pos(); };
  const QPoint home = at("Label4(2)");
  const QPoint middle(32, 32);
  click("tolvane", "Label2(3)");
  QTest::qWait(aWholeThrow);

  QWidget& die = view("tolvane", "Label4(2)");
  // What the window system sends while the button is held; QTest's own move has no button.
  const auto moveTo = [&](QPoint there) {
    QMouseEvent move(QEvent::MouseMove, there, board.mapToGlobal(there), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(&board, &move);
    QCoreApplication::processEvents();
  };
  QTest::mousePress(&board, Qt::LeftButton, {}, home + middle);
  moveTo(at("Label4(3)") + middle);
  EXPECT_EQ(die.pos(), at("Label4(3)"));
  EXPECT_EQ(board.children().back(), &die) << "The dragged die is not above the others.";
  const QPoint crew = at("Image1(3)");
  moveTo(crew + middle + QPoint(7, -9));
  EXPECT_EQ(die.pos(), crew + QPoint(7, -9));
  QTest::mouseRelease(&board, Qt::LeftButton, {}, crew + middle);
  QCoreApplication::processEvents();
  EXPECT_EQ(die.pos(), crew);
}

/// Counts the widgets that are painted, by name.
class PaintCounter final : public QObject {
 public:
  std::map<std::string, int> painted;
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++painted[object->objectName().toStdString()];
    return false;
  }
};

TEST_F(Program, ARollRepaintsTheDiceAlone) {
  openBoard(2);
  click("tolvane", "Label2(3)");
  QTest::qWait(400);
  PaintCounter counter;
  qApp->installEventFilter(&counter);
  EXPECT_TRUE(QTest::qWaitFor([&] { return counter.painted["Label4(4)"] > 10; }));
  qApp->removeEventFilter(&counter);
  for (const char* still : {"Label1", "Image1(0)", "Label5(0)", "Label2(3)", "Label3(0)"}) {
    EXPECT_EQ(counter.painted[still], 0) << still;
  }
}

TEST(Keys, AreReadOnEveryKeyboard) {
  constexpr quint32 two = 11;
  constexpr quint32 t = 28;
  constexpr quint32 l = 46;
  const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
  for (const auto& [key, scanCode, modifiers, held, expected] : std::initializer_list<
           std::tuple<int, quint32, Qt::KeyboardModifiers, bool, std::optional<platform::Key>>>{
           {Qt::Key_Eacute, two, {}, false, platform::Key{'2'}},
           {Qt::Key_2, two, shift, false, platform::Key{'2'}},
           {Qt::Key_6, two, {}, false, platform::Key{'6'}},
           {0x435, t, {}, false, platform::Key::T},
           {Qt::Key_D, t, {}, false, platform::Key::D},
           {Qt::Key_T, t, Qt::ControlModifier, false, std::nullopt},
           {Qt::Key_T, t, {}, true, std::nullopt},
           {Qt::Key_L, l, {}, false, std::nullopt},
           {Qt::Key_Backtab, 0, shift, false, platform::Key::BackTab},
           {Qt::Key_Return, 0, {}, false, platform::Key::Return},
           {Qt::Key_Enter, 0, Qt::KeypadModifier, false, platform::Key::Return},
           {Qt::Key_Space, 0, {}, true, std::nullopt},
           {Qt::Key_Left, 0, {}, true, platform::Key::Left}}) {
    const QKeyEvent press(QEvent::KeyPress, key, modifiers, scanCode, 0, 0, {}, held);
    EXPECT_EQ(platform::qt::keyFrom(press), expected) << key << ' ' << scanCode;
  }
}

/// What a screen reader finds: a line for each part with its role, its name and what it can do.
std::string told(QAccessibleInterface& window) {
  static const std::map<QAccessible::Role, std::string> roles{
      {QAccessible::Heading, "heading"}, {QAccessible::StaticText, "text"}, {QAccessible::Button, "button"},
      {QAccessible::CheckBox, "box"},    {QAccessible::Link, "link"},       {QAccessible::ListItem, "piece"}};
  std::string all;
  for (int i = 0; i < window.childCount(); ++i) {
    QAccessibleInterface& part = *window.child(i);
    EXPECT_EQ(window.indexOfChild(&part), i);
    EXPECT_EQ(part.parent(), &window);
    EXPECT_FALSE(part.text(QAccessible::Name).isEmpty());
    if (part.role() == QAccessible::StatusBar) continue;  // Holds what the game says; not to be seen.
    const QAccessible::State state = part.state();
    EXPECT_EQ(part.actionInterface()->actionNames().size(), state.focusable && !state.disabled ? 2 : 0);
    all += roles.at(part.role()) + (state.disabled ? " (grey)" : "") + (state.checked ? " (ticked)" : "") +
           (state.focused ? " (here)" : "") + ": " + part.text(QAccessible::Name).toStdString() + "\n";
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
  EXPECT_EQ(reader.role(), QAccessible::Window);
  EXPECT_FALSE(reader.text(QAccessible::Name).isEmpty());
  EXPECT_EQ(told(reader), R"(text: ORANGE TO PLAY
text: ROUND 1 OF 4
button (here): Throw Dice
piece: die 1, not thrown
piece: die 2, not thrown
piece: die 3, not thrown
piece: die 4, not thrown
piece: die 5, not thrown
piece: SHIP, takes a 6, empty
piece: CAPTAIN, takes a 5, empty
piece: MATE, takes a 4, empty
piece: CREW, takes any die, empty
piece: CARGO, takes any die, empty
text: Orange 0
text: Magenta 0
button: New Game
button: Exit
text: Fair winds and a full hold!
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
