// A game that is left with Exit and taken up again from the title screen, through the file "lastgame.inf".
#include <csignal>
#include <fstream>
#include <map>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "simulated_program.h"

namespace {

constexpr const char* fileName = "lastgame.inf";

/// In a folder of its own. A test that hangs is ended.
struct Program : tests::EmptyFolder, tests::SimulatedProgram {
  Program() { alarm(60); }

  /// "2,0,1," on as many lines.
  static std::string lines(const std::string& values, const char* lineEnd = "\r\n") {
    std::string text;
    for (const char character : values) text += character == ',' ? lineEnd : std::string(1, character);
    return text;
  }

  /// "Restart Previous Game" with this file: the open screens afterwards.
  std::string restart(const std::string& text) {
    if (!text.empty()) std::ofstream(fileName, std::ios::binary) << text;
    desktop.click("Titlefrm", "Label6");
    board = desktop.find("tolvane") ? "tolvane" : "tolvanecomputer";
    return screens();
  }
  /// Exit: to the title, with a click, and nothing more of the board; the file afterwards.
  std::string leave() {
    heard();
    click("Label2(2)");
    desktop.advance(30000);
    EXPECT_EQ(desktop.openScreens().back()->name() + (desktop.find(board) ? board : "") + heard(),
              "Titlefrmclick1");
    std::ifstream file(fileName, std::ios::binary);
    return {std::istreambuf_iterator(file), {}};
  }
};

TEST(SavedGame, HoldsTheGameThatWasLeft) {
  // Before; what is played: a turn is Lost or scores 3, a New game, a Die set aside, a Glide; afterwards.
  for (const auto& [before, played, after] : tests::rows<3>(R"(
      3,2,2,0,14,9,7,0,1,1,  -   3,2,2,0,14,9,7,0,1,1,   2,1,3,0,5,48,3,4,0,1, D 2,1,3,0,5,48,3,4,0,1,
      4,3,1,0,1,2,3,9,0,0,   3   4,0,2,0,1,2,3,12,0,0,   2,1,3,0,5,6,7,8,1,1,  N 2,0,1,0,0,0,7,8,1,1,
      2,0,1,1,1,2,0,0,0,0,   D   2,0,1,1,1,2,0,0,0,0,    4,1,2,7,9,2,3,4,1,1,  G 2,1,2,1,9,2,0,0,1,1,
      2,0,2,0,32767,-5,0,0,1,0, 3 2,1,2,0,32767,-5,0,0,1,0,
      2,1,4,0,10,20,0,0,1,0, LNL -                       2,1,4,0,9,2,0,0,1,0,  L -)")) {
    Program program;
    const std::string old = Program::lines(before) + std::string(200, '7');  // A new file is shorter.
    program.restart(old);
    for (const char what : played) {
      if (what == 'G') program.scriptThrow("65466");
      if (what == 'N') program.click("Label2(4)");
      for (int i = 0; i < 3 && what == 'L'; ++i) program.throwFaces("66123");
      if (what == '3' || what == 'D') program.throwFaces("65412");
      program.dragDice(what == '3' ? "01234" : "0----");  // Dice without a face stay.
      if (what == 'D') program.click("Label2(3)");
      program.desktop.advance(what == 'G' ? 3200 : what == 'D' ? 500 : 4000);
    }
    EXPECT_EQ(program.leave(), after.empty() ? old : program.lines(after)) << before << " " << played;
  }
}

TEST(SavedGame, IsTakenUpOnlyWhenItCanBePlayed) {
  const std::map<std::string, const char*> games{
      {"tolvane", R"(3,2,4,0,48,0,7,0,1,0, 2,1,2,0,14,9,7,0,1,0 4,1,1,0,14,9,7,0,1,0 3,1,2,0,14,+9+,7,0,1,0
          3,1,2,0,14,9,7,0,1,2 3,1,2,0,14,9,7,0,1,yes 3,1,2,0,14,9,7,0,1,99999999999)"},
      {"Grey tolvane", "3,2,4,0,48,0,7,0,1,1 3,2,4,0,48,0,7,0,0,1,8,,more, 3,2,4,0,48,0,7,0,1,+1+,"},
      {"tolvanecomputer", "3,1,2,1,14,9,7,0,1,0"},
      {"Grey tolvanecomputer", "4,1,2,1,14,9,7,0,1,1"},
      {"Titlefrm", R"(- 3,2,4, 3,2,1,1,0,0,0,0,1,0 3,1,2,0,14,9,7,0,65537,0 3,1,2,0,14,9,7,0,4294967297,0
          3,1,2,65536,14,9,7,0,1,0 3,1,2,0,14,9+9,7,0,1,0 3,1,2,0,14,,7,0,1,0
          3,1,2,0,14,x,7,0,1,0 3,1,2,0,14,9x,7,0,1,0 3,1,2,0,14,9.5,7,0,1,0 3,1,2,0x0,14,9,7,0,1,0
          3;1;2;0;14;9;7;0;1;0)"}};
  for (const auto& [open, texts] : games) {
    for (const auto& [text] : tests::rows<1>(texts)) {
      Program program;
      EXPECT_EQ(program.restart(program.lines(text, "\n")), open) << text;
      EXPECT_EQ(program.heard(), open != "Titlefrm" && program.options.soundOn == 1 ? "click1" : "") << text;
      EXPECT_TRUE(text != "3,2,4," || (program.options.playerCount == 3 && program.state.roundNumber == 4));
      if (open != "Titlefrm") continue;
      program.openBoard(4);  // Whatever was read is forgotten.
      EXPECT_EQ(program.leave(), program.lines("4,0,1,0,0,0,0,0,1,1,")) << text;
    }
  }
}

TEST(SavedGame, IsTakenUpWithEachValueWithinItsLimits) {
  for (const auto& [place, least, most] : tests::rows<3>(R"(
      0 2 4   1 0 2   2 1 4   3 -32768 32767   4 -32768 32767
      5 -32768 32767   6 -32768 32767   7 -32768 32767   8 -32768 32767)")) {
    const int limits[] = {std::stoi(least) - 1, std::stoi(least), std::stoi(most), std::stoi(most) + 1};
    for (const int value : limits) {
      std::array<int, 10> values{3, 1, 2, 0, 14, 9, 7, 0, 1, 0};
      values.at(std::stoul(place)) = value;
      std::string text;
      for (const int each : values) text += std::to_string(each) + ",";
      Program program;
      const bool good = value == limits[1] || value == limits[2];
      const char* board = values[3] == 0 ? "tolvane" : "tolvanecomputer";
      EXPECT_EQ(program.restart(program.lines(text)), good ? board : "Titlefrm") << text;
    }
  }
}

TEST(SavedGame, IsTakenUpOnlyWhole) {
  const std::string whole = Program::lines("3,2,4,0,48,10,7,0,1,1,");
  for (std::size_t length = 1; length <= whole.size(); ++length) {
    Program program;
    const bool good = length >= whole.size() - 2;  // The last line may lack its end.
    EXPECT_EQ(program.restart(whole.substr(0, length)), good ? "Grey tolvane" : "Titlefrm") << length;
  }
}

TEST(SavedGame, MayBeMoreThanThePlayerMayWrite) {
  std::signal(SIGXFSZ, SIG_IGN);  // As the program does.
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  for (const rlim_t most : {0U, 5U}) {
    Program program;
    program.restart(Program::lines("3,1,2,0,14,9,7,0,1,0,"));
    const rlimit limit{most, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    const std::string kept = program.leave();
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(kept.size(), most);
    program.openBoard(2);
    EXPECT_EQ(program.leave(), program.lines("2,0,1,0,0,0,0,0,1,1,"));
  }
}

TEST(SavedGame, IsNoTrapWhateverItsNameStandsFor) {
  for (const char* target :
       {"none", "none/none", fileName, ".", "pipe", "huge", "/dev/zero", "/dev/full", "/proc/self/mem"}) {
    Program program;
    mkfifo("pipe", 0600);
    std::ofstream("huge") << '2';
    std::filesystem::resize_file("huge", 1ULL << 40);
    std::filesystem::create_symlink(target, fileName);
    SCOPED_TRACE(target);
    EXPECT_EQ(program.restart(""), "Titlefrm");
    program.openBoard(3);
    program.desktop.click("tolvane", "Label2(2)");
    EXPECT_EQ(program.screens(), "Grey Titlefrm");
  }
}

TEST(SavedGame, IsResumedAtAnySeatInAnyRound) {
  std::mt19937 random(20261122);
  const auto any = [&](int least, int most) { return std::uniform_int_distribution(least, most)(random); };
  for (int number = 0; number < 400; ++number) {
    const int computer = any(0, 1);
    const int players = computer ? 2 : any(2, 4);
    const int seat = any(0, players - 1);
    const int round = any(1, 4);
    const int yellow = computer ? 0 : any(0, 48);
    const int backdrop = any(0, 1);
    std::string text;
    for (const int value :
         {players, seat, round, computer, any(0, 48), any(0, 48), yellow, yellow / 2, any(0, 1), backdrop}) {
      text += std::to_string(value) + ",";
    }
    SCOPED_TRACE(text);
    Program program;
    EXPECT_EQ(program.restart(program.lines(text, any(0, 1) ? "\n" : " \r\n\t")),
              std::string(backdrop ? "Grey " : "") + (computer ? "tolvanecomputer" : "tolvane"));
    const auto& [seatName, colour, toPlay, hasWon] = game::seats.at(static_cast<std::size_t>(seat));
    EXPECT_EQ(program.die(4).background, colour);
    for (const char* name : {"Label1", "Label6", "Label8", "Label2(3)"})
      EXPECT_EQ(program.at(name).textColour, colour);
    program.scriptThrow("12345");
    program.click("Label2(3)");
    program.desktop.advance(999);
    EXPECT_EQ(program.at("Label8").visible, !(computer && seat == 1));
    program.desktop.advance(1 + 2005);
    EXPECT_EQ(program.faces() + program.at("Label8").text, "12345THROW 1");
    EXPECT_EQ(program.at("Label1").text + ", ROUND " + std::to_string(round) + " OF 4",
              std::string(toPlay) + ", " + program.at("Label6").text);
    EXPECT_EQ(program.leave(), program.lines(text));
  }
}

}  // namespace
