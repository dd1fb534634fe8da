// The road through the program's screens, their places, what they do without pictures, the throw to try out.

#include "simulated_program.h"

TEST(Screens, LeadWhereTheirButtonsSay) {
  const tests::EmptyFolder elsewhere;  // Leaving a board saves its game.
  tests::SimulatedProgram program;
  const std::map<char, std::string> names{
      {'T', "Titlefrm"},        {'O', "Startplay2"},   {'G', "Grey"},          {'b', "tolvane"},
      {'c', "tolvanecomputer"}, {'1', "Wembickrules"}, {'2', "Wembickrules2"}, {'3', "Wembickrules2b"}};
  // A screen and what is clicked there, the screens then open (the one shown last at the end), what is heard.
  for (const auto& [screen, widget, open, sounds] : tests::rows<4>(R"(
      T Label5 GO click1      O Label3(0) GT -        T Label5 GO click1      O Check3 O click1
      O Label3(0) T -         T Label5 GO click1      O Check3 O click1       O Check3 GO click1
      O Label2(0) GO -        O Label2(1) GO -        O Label2(12) GO -       O Label6 GO1 click
      1 Label3(0) GO click1   O Label6 GO1 click      1 Label3(1) GO2 click1  2 Label3(2) GO1 click1
      1 Label3(1) GO2 click1  2 Label3(1) GO3 click1  3 Label3(2) GO2 click1
      2 Label3(1) GO3 click1  3 Label2 GO3 click1     3 Label3(2) GO2 click1  2 Label3(0) GO click1
      O Label6 GO1 click      O Label1(2) Gb click    b Label2(2) GT click1   T Label5 GO click1
      O Label6 GO1 click      1 Label3(1) GO2 click1  O Label1(3) G2b click   2 Label3(1) Gb3 click1
      b Label2(2) G3T click1  T Label5 3GO click1     O Check1 3GO click1     O Label1(0) 3Gc -
      3 Label2 3Gc -          3 Label3(0) Gc -        c Label2(2) GT click1   T close G -
      T start GT -            T Label5 GO click1      O Label6 GO1 click      O close G1 -
      1 close G -             O start GO -            O Check3 O click1       O Label1(1) b click
      b close - -             T start T -             T Label7 T -)")) {
    SCOPED_TRACE(screen + " " + widget);
    const std::string& name = names.at(screen[0]);
    std::filesystem::remove("lastgame.inf");
    program.desktop.ended = false;
    program.desktop.presented.clear();
    if (widget == "start") program.desktop.start(name);
    if (widget == "close") program.desktop.closeWindow(name);
    EXPECT_EQ(program.desktop.click(name, widget), widget.starts_with("L") || widget.starts_with("C"));
    std::string expected;
    for (const char letter : open) expected += (expected.empty() ? "" : " ") + names.at(letter);
    EXPECT_EQ(program.screens(), expected);
    const std::vector<std::string>& presented = program.desktop.presented;
    EXPECT_TRUE(presented.empty() || expected.ends_with(presented.back()));
    EXPECT_EQ(program.heard(), sounds);
    EXPECT_FALSE(widget == "close" && std::filesystem::exists("lastgame.inf"));
    EXPECT_EQ(program.desktop.ended, open == "G" || open.empty() || widget == "Label7");
    const auto* hide = program.desktop.widget("Startplay2", "Check3");
    const bool hidden = program.desktop.find("Grey") != nullptr;
    EXPECT_TRUE(!hide || (hide->checked == hidden && program.options.hideDesktop == hidden));
  }
  const std::string page = "https://tolvane.example/";
  EXPECT_EQ(program.desktop.documents,
            (std::vector<std::string>{page, page, page, "Tolvane Rules.doc", "Tolvane Rules.doc"}));
}

// Where a screen asks to stand, frame included.
static std::array<float, 4> place(const platform::Screen& screen) {
  return {screen.left, screen.top, screen.width, screen.height};
}

TEST(Screens, StandInTheMiddleOfTheDisplay) {
  const std::array<float, 4> displays[] = {
      {9600, 7200, -1200, -900}, {12000, 9000, 0, 0}, {12015, 9000, 7.5, 0}, {28815, 16215, 8407.5, 3607.5}};
  for (const auto& [width, height, left, top] : displays) {
    tests::SimulatedProgram program;
    platform::SimulatedDesktop& desktop = program.desktop;
    desktop.display = {width, height};
    desktop.click("Titlefrm", "Label5");
    EXPECT_EQ(desktop.widget("Startplay2", "Check3")->visible, width > 12000);
    EXPECT_EQ(place(*desktop.find("Startplay2")), (std::array{width / 2, height / 2, 0.F, 0.F}));
    desktop.start("tolvane");
    EXPECT_EQ(desktop.pointers, (std::vector{platform::Pointer::Busy, platform::Pointer::Default}));
    EXPECT_EQ(place(*desktop.find("tolvane")), (std::array{left, top, 12000.F, 9000.F}));
  }
}

TEST(Screens, GoOnWithoutTheirPictures) {
  tests::SimulatedProgram program;
  program.desktop.pictures = {{"Images\\logo2.jpg", std::nullopt}, {"Images\\opening.jpg", std::nullopt}};
  program.desktop.click("Titlefrm", "Label5");
  constexpr std::array<float, 4> large{3600, 3180, 12000, 9000};
  EXPECT_EQ(place(*program.desktop.find("Startplay2")), large);
  EXPECT_FALSE(program.desktop.widget("Startplay2", "Check3")->visible);
  program.desktop.click("Startplay2", "Label3(0)");
  EXPECT_EQ(place(*program.desktop.find("Titlefrm")), large);
}

TEST(TryItOut, RollsAndSettlesToTheMillisecond) {
  for (const int soundOn : {1, 0}) {
    tests::SimulatedProgram program;
    program.options.soundOn = soundOn;
    program.board = "Wembickrules2";
    program.desktop.start(program.board);
    // What was drawn before is kept by a die that is not drawn; one never drawn shows a 1.
    program.desktop.chance().script = {0, 0, 0.015, 0.6, 0, 0};
    program.click("Label2");
    program.desktop.advance(5000);
    program.heard();
    program.desktop.chance().script = {0.015, 0.2, 0, 0, 0, 0};
    program.click("Label2");
    EXPECT_EQ(
        program.heard() + " " + program.watchDice(3000),
        soundOn == 1
            ? "cupdice 1200 33333; 1500 23333; 1750 21333; 2000 21433; 2250 21413; 2500 21411; 800 times"
            : " 100 33333; 300 23333; 550 21333; 800 21433; 1050 21413; 1300 21411; 700 times");
    EXPECT_EQ(program.desktop.chance().reseeds, 2);
    EXPECT_EQ(program.desktop.nextTick(), std::nullopt);
    EXPECT_TRUE(program.die(4).enabled);
  }
}
