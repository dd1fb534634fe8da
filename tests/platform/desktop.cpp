// Timers, handlers, mouse and keys as every screen relies on them, and file names.

#include <fstream>

#include "platform/files.h"
#include "simulated_program.h"

using std::chrono::milliseconds;

struct Clock final : platform::Screen {
  explicit Clock(platform::Desktop& on) : Screen(on, "Clock") {
    add(timer);
    timer.onTick = [this] { ++ticks; };
    timer.enable();
  }
  int ticks = 0;
  platform::Timer timer{100};
};

TEST(Timer, KeepsItsRhythmAndCausesNoBurst) {
  platform::SimulatedDesktop desktop;
  desktop.registerScreen("Clock", [&desktop] { return std::make_unique<Clock>(desktop); });
  desktop.start("Clock");
  // The moment, the ticks that have come, the next one.
  for (const auto& [now, ticks, next] : tests::rows<3>(R"(
      99 0 100   100 1 200   100 1 200   230 2 300   399 3 400   399 3 400   500 4 600   1650 5 1750   1650 5 1750
      1749 5 1750   1751 6 1850)")) {
    desktop.stall(std::stoi(now) - static_cast<int>(desktop.now() / milliseconds(1)));
    desktop.runDueTick();
    EXPECT_EQ(static_cast<Clock&>(*desktop.find("Clock")).ticks, std::stoi(ticks)) << now;
    EXPECT_EQ(desktop.nextTick(), milliseconds(std::stoi(next))) << now;
  }
}

TEST(Desktop, HandlesTheNextEventAfterOneThatFailed) {
  tests::SimulatedProgram game(2);
  EXPECT_THROW(game.desktop.handle([] { throw std::bad_alloc(); }), std::bad_alloc);
  game.click("Label2(2)");
  EXPECT_EQ(game.heard(), "click1");
}

using Place = std::pair<float, float>;

// A hand on the mouse, over the screen in front.
struct Hand : tests::SimulatedProgram {
  using SimulatedProgram::SimulatedProgram;

  platform::Screen& screen() { return *desktop.openScreens().back(); }
  platform::MouseEvent at(const Place& place) const {
    return {held, place.first, place.second, desktop.now()};
  }
  bool press(const Place& place, int button = platform::leftButton) {
    held |= button;
    return desktop.pressMouse(screen(), at(place));
  }
  void move(const Place& place) { desktop.moveMouse(screen(), at(place)); }
  void release(const Place& place, int button = platform::leftButton) {
    held &= ~button;
    desktop.releaseMouse(screen(), at(place), button);
  }
  std::string sunk() { return screen().sunk() ? screen().sunk()->name : ""; }

  int held = 0;
};

// "Play Sound" among the options, and beside it.
constexpr Place topLeft{720, 2640}, bottomRight{2414.5F, 3014.5F};
constexpr Place toTheLeft{719, 2700}, toTheRight{2415, 2700}, above{800, 2639}, below{800, 3015};

// Whether a button that goes down at one place and up at another clicks.
static bool clicks(const Place& down, const Place& up, int button = platform::leftButton) {
  Hand hand;
  hand.desktop.click("Titlefrm", "Label5");
  hand.heard();
  hand.press(down, button);
  hand.release(up, button);
  return hand.heard() == "click1";
}

TEST(Mouse, ClicksWhatItGoesDownAndUpOn) {
  EXPECT_TRUE(clicks(topLeft, bottomRight) && clicks(bottomRight, topLeft));
  for (const Place& outside : {toTheLeft, toTheRight, above, below}) {
    EXPECT_FALSE(clicks(outside, outside) || clicks(topLeft, outside) || clicks(outside, topLeft));
  }
  EXPECT_FALSE(clicks(topLeft, topLeft, 2) || clicks(topLeft, topLeft, 3));
}

TEST(Mouse, SinksAButtonWhileItWouldBeClicked) {
  Hand hand;
  hand.desktop.click("Titlefrm", "Label5");
  hand.heard();
  for (const bool lost : {false, true}) {
    const int refreshes = hand.desktop.refreshes;
    hand.press(topLeft);
    EXPECT_EQ(hand.sunk(), "Check1");
    hand.press(below, 2);  // Another button is of no account meanwhile, nor is a key.
    hand.release(topLeft, 2);
    hand.desktop.pressKey("Startplay2", platform::Key{'2'});
    hand.move(toTheRight);
    EXPECT_EQ(hand.sunk(), "");
    hand.move(bottomRight);
    EXPECT_EQ(hand.sunk(), "Check1");
    if (lost) hand.held = 0;  // The window system keeps the release to itself.
    if (lost) hand.move(topLeft);
    if (!lost) hand.release(topLeft);
    EXPECT_EQ(hand.sunk() + hand.heard(), lost ? "" : "click1");
    EXPECT_EQ(hand.desktop.refreshes, refreshes + (lost ? 4 : 5)) << "What has changed is to be seen.";
  }
}

TEST(Mouse, CarriesWhatItHoldsAndNothingElse) {
  Hand hand(2);
  hand.throwFaces("66123");
  hand.dragDice("00");
  const Place ship{hand.icon(0).left + 480, hand.icon(0).top + 480}, third{7700, 4800}, fourth{8900, 4800};
  const auto inFront = [&hand] { return hand.screen().drawingOrder().back()->name; };
  EXPECT_TRUE(hand.press(ship));  // Of two dice there the one in front.
  hand.move(third);
  hand.move(fourth);
  hand.held = 0;
  hand.move(fourth);  // The release got lost.
  hand.move(fourth);
  EXPECT_EQ(hand.places() + inFront(), "0hhhhLabel4(3)");
  EXPECT_FALSE(hand.press({6000, 8000}));
  hand.move(third);
  EXPECT_EQ(inFront(), "Label4(3)") << "A die hears of a button that went down elsewhere.";
  hand.release(third);
  hand.press(third);
  hand.press(fourth, 2);
  hand.release(ship);  // The other button still holds the die, but the left one alone moves it.
  hand.move({fourth.first, 8000});
  hand.release(fourth, 2);
  EXPECT_EQ(hand.places() + inFront(), "0hhhhLabel4(2)");
  hand.press(ship);
  hand.move({-9000, 20000});  // However far the mouse goes, the die stays within reach.
  hand.release(ship);
  EXPECT_EQ(std::tuple(hand.die(0).left, hand.die(0).top), std::tuple(-487.5F, 8445 - 487.5F));
  hand.desktop.pressKey(hand.board, platform::Key::D);
  EXPECT_EQ(hand.desktop.said.back(), "In the row: 6, 1, 2, 3. 6 beside the icons.");
}

// On what has just come up the second of two clicks would be a surprise.
TEST(Mouse, LeavesTheSecondOfTwoClicksUnheard) {
  const Place okAndThePageOfTheMakers{1500, 5900};
  // The wait, and the pages that the second and the third click have opened.
  for (const auto& [wait, second, third] : std::initializer_list<std::tuple<int, std::size_t, std::size_t>>{
           {0, 0, 1}, {399, 0, 1}, {400, 1, 2}}) {
    Hand hand;
    hand.desktop.advance(1000);
    hand.press(okAndThePageOfTheMakers);
    hand.release(okAndThePageOfTheMakers);
    hand.desktop.advance(wait);
    for (const std::size_t pages : {second, third}) {
      hand.press(okAndThePageOfTheMakers);
      hand.release(okAndThePageOfTheMakers);
      EXPECT_EQ(hand.desktop.documents.size(), pages) << wait;
    }
  }
}

#ifndef _WIN32  // Which does that by itself.
TEST(File, IsFoundInEveryCase) {
  const tests::EmptyFolder folder;
  std::filesystem::create_directories("Images/Old");
  for (const char* file : {"Images/Start.JPG", "Images/Old/start.jpg", "Rules.doc", "RULES.DOC"})
    std::ofstream(file) << "x";
  for (const auto& [name, file] : tests::rows<2>(R"(
      Images\Start.JPG Images/Start.JPG   images\start.jpg Images/Start.JPG   IMAGES\OLD\START.JPG Images/Old/start.jpg
      images\star.jpg Images/star.jpg     wav\key.wav wav/key.wav             Rules.doc Rules.doc   RULES.DOC RULES.DOC)")) {
    EXPECT_EQ(platform::fileNamed(name).generic_string(), file);
  }
}
#endif
