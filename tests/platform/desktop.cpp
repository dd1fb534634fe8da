// Timers and handlers as every screen relies on them, and file names.

#include "platform/desktop.h"

#include <fstream>

#include "platform/files.h"
#include "tests/simulated_program.h"

using std::chrono::milliseconds;

static std::string diary;

struct Clock final : platform::Screen {
  explicit Clock(platform::Desktop& on) : Screen(on, "Clock") {
    add(timer);
    timer.onTick = [] { diary += "tick "; };
    timer.enable();
  }
  ~Clock() override { diary += "gone "; }
  platform::Timer timer{100};
};

// Shows a clock at the moment 0.
static platform::Timer& startClock(platform::SimulatedDesktop& desktop) {
  diary.clear();
  desktop.registerScreen("Clock", [&desktop] { return std::make_unique<Clock>(desktop); });
  desktop.start("Clock");
  return static_cast<Clock&>(*desktop.find("Clock")).timer;
}

TEST(Timer, KeepsItsRhythmAndCausesNoBurst) {
  platform::SimulatedDesktop desktop;
  startClock(desktop);
  // The moment, the ticks that have come, the next one.
  for (const auto& [now, ticks, next] : tests::rows<3>(R"(
      99 0 100   100 1 200   100 1 200   230 2 300   399 3 400   399 3 400   500 4 600   1650 5 1750   1650 5 1750
      1749 5 1750   1751 6 1850)")) {
    desktop.runDueTick(milliseconds(std::stoi(now)));
    EXPECT_EQ(diary.size(), 5 * std::stoul(ticks)) << now;
    EXPECT_EQ(desktop.nextTick(), milliseconds(std::stoi(next))) << now;
  }
}

TEST(Timer, CountsFromWhenItIsEnabledOrSet) {
  const std::pair<void (*)(platform::Timer&), std::optional<platform::Moment>> cases[] = {
      {[](auto& timer) { timer.enable(); }, milliseconds(100)},
      {[](auto& timer) { timer.setInterval(100); }, milliseconds(160)},
      {[](auto& timer) { timer.setInterval(30); }, milliseconds(90)},
      {[](auto& timer) { timer.disable(), timer.enable(); }, milliseconds(160)},
      {[](auto& timer) { timer.disable(), timer.setInterval(30); }, std::nullopt},
  };
  for (const auto& [ask, next] : cases) {
    platform::SimulatedDesktop desktop;
    platform::Timer& timer = startClock(desktop);
    desktop.handle(milliseconds(60), [&timer, ask = ask] { ask(timer); });
    EXPECT_EQ(desktop.nextTick(), next) << "case " << &ask - &cases[0].first;
  }
}

TEST(Handler, RunsToItsEndBeforeItsScreenGoes) {
  platform::SimulatedDesktop desktop;
  startClock(desktop).onTick = [&desktop] {
    desktop.unload("Clock");
    desktop.show("Clock");  // A fresh one.
    diary += "done ";
  };
  desktop.runDueTick(milliseconds(100));
  EXPECT_EQ(diary, "done gone ");
  EXPECT_EQ(desktop.nextTick(), milliseconds(200));
  EXPECT_FALSE(desktop.ended);
}

TEST(File, IsFoundInEveryCase) {
  const tests::EmptyFolder folder;
  std::filesystem::create_directories("Images/Old");
  for (const char* file : {"Images/Start.JPG", "Images/Old/start.jpg", "Tolvane Rules.doc"})
    std::ofstream(file) << "x";
  for (const auto& [name, file] : tests::rows<2>(R"(
      Images\Start.JPG Images/Start.JPG   images\start.jpg Images/Start.JPG   IMAGES\OLD\START.JPG Images/Old/start.jpg
      images\star.jpg Images/star.jpg     wav\key.wav wav/key.wav             tolvane+rules.doc Tolvane+Rules.doc)")) {
    EXPECT_EQ(platform::fileNamed(name).generic_string(), file);
  }
}
