// A game that is left with Exit and taken up again from the title screen, through the file "lastgame.inf".
#include <fstream>
#include <map>
#include <sys/stat.h>

#include "simulated_program.h"

namespace {

constexpr const char* fileName = "lastgame.inf";

/// In a folder of its own.
struct Program : tests::EmptyFolder, tests::SimulatedProgram {
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
  // Before; what is played: a turn is Lost or scores 3, a New game, a Die set aside, a Glide; what is then
  // seen of turn and round; afterwards.
  for (const auto& [before, played, seen, after] : tests::rows<4>(R"(
      3,2,2,0,14,9,7,0,1,1,  -   YELLOW+TO+PLAY,+ROUND+2+OF+4   3,2,2,0,14,9,7,0,1,1,
      4,3,1,0,1,2,3,9,0,0,   3   ORANGE+TO+PLAY,+ROUND+2+OF+4   4,0,2,0,1,2,3,12,0,0,
      2,1,3,0,5,6,7,8,1,1,   N   ORANGE+TO+PLAY,+ROUND+1+OF+4   2,0,1,0,0,0,7,8,1,1,
      2,0,1,1,1,2,0,0,0,0,   D   ORANGE+TO+PLAY,+ROUND+1+OF+4   2,0,1,1,1,2,0,0,0,0,
      4,1,2,7,9,2,3,4,1,1,   G   MAGENTA+TO+PLAY,+ROUND+2+OF+4  2,1,2,1,9,2,0,0,1,1,
      2,0,2,0,32767,-5,0,0,1,0, 3 MAGENTA+TO+PLAY,+ROUND+2+OF+4 2,1,2,0,32767,-5,0,0,1,0,
      2,1,4,0,10,20,0,0,1,0, LNL MAGENTA+TO+PLAY,+ROUND+1+OF+4  -)")) {
    SCOPED_TRACE(before + " " + played);
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
    EXPECT_EQ(program.view().substr(0, seen.size()), seen);
    EXPECT_EQ(program.leave(), after.empty() ? old : program.lines(after));
  }
}

TEST(SavedGame, IsTakenUpOnlyWhenItCanBePlayed) {
  const std::map<std::string, const char*> games{
      {"tolvane",
       R"(3,2,4,0,48,0,7,0,1,0, 3,2,4,0,-32768,49,7,32767,1,0, 2,1,2,0,14,9,7,0,1,0 4,1,1,0,14,9,7,0,1,0 3,1,2,0,14,+9+,7,0,1,0
          2,0,2,0,14,9,7,0,1,0 2,1,2,0,0,9,48,48,-32768,0 4,3,1,0,0,48,0,0,32767,0
          3,1,2,0,14,9,7,0,1,2 3,1,2,0,14,9,7,0,1,yes 3,1,2,0,14,9,7,0,1,99999999999)"},
      {"Grey tolvane", "3,2,4,0,48,0,7,0,1,1 3,2,4,0,48,0,7,0,0,1,8,,more, 3,2,4,0,48,0,7,0,1,+1+,"},
      {"tolvanecomputer", "3,1,2,1,14,9,7,0,1,0 2,1,2,-32768,14,9,7,0,1,0"},
      {"Grey tolvanecomputer", "4,1,2,1,14,9,7,0,1,1"},
      {"Titlefrm", R"(- 3,2,4, 3,2,1,1,0,0,0,0,1,0 3,1,2,0,14,9,7,0,65537,0 3,1,2,0,14,9,7,0,4294967297,0
          1,0,2,0,14,9,7,0,1,0 5,1,2,0,14,9,7,0,1,0 3,-1,2,0,14,9,7,0,1,0 3,3,2,0,14,9,7,0,1,0
          3,1,0,0,14,9,7,0,1,0 3,1,5,0,14,9,7,0,1,0 3,1,2,0,14,9,7,32768,1,0
          3,1,2,65536,14,9,7,0,1,0 3,1,2,0,14,9+9,7,0,1,0 3,1,2,0,14,,7,0,1,0
          3,1,2,0,14,x,7,0,1,0 3,1,2,0,14,9x,7,0,1,0 3,1,2,0,14,9.5,7,0,1,0 3,1,2,0x0,14,9,7,0,1,0
          3,1,2,0,14,9,7,0,1 3,1,2,0,14,9,7,0,1, 3;1;2;0;14;9;7;0;1;0)"}};
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

#ifndef _WIN32  // Where there are no such things.
TEST(SavedGame, IsNoTrapWhateverItsNameStandsFor) {
  for (const char* target :
       {"none", "none/none", fileName, ".", "pipe", "huge", "/dev/zero", "/dev/full", "/proc/self/mem"}) {
    SCOPED_TRACE(target);
    Program program;
    mkfifo("pipe", 0600);
    std::ofstream("huge") << '2';
    std::filesystem::resize_file("huge", 1ULL << 40);
    std::filesystem::create_symlink(target, fileName);
    EXPECT_EQ(program.restart(""), "Titlefrm");
    program.openBoard(3);
    program.desktop.click("tolvane", "Label2(2)");
    EXPECT_EQ(program.screens(), "Grey Titlefrm");
  }
}
#endif

}  // namespace
