// The computer's turn as it is seen and heard, to the millisecond.
#include <map>

#include "simulated_program.h"

namespace {

using Throws = std::map<int, std::string_view>;  // The faces to come, from so many milliseconds on.

struct Onlooker : tests::SimulatedProgram {
  /// On the board against the computer, which is to play in the third round.
  Onlooker() {
    board = "tolvanecomputer";
    options = {
        .playerCount = 2, .soundOn = 1, .computerOpponent = 1, .restoreSavedGame = 1, .hideDesktop = 0};
    state = {.currentSeat = 1, .roundNumber = 3, .seatScore = {}};
    desktop.start(board);
    options.restoreSavedGame = 0;
  }

  /// What is seen and heard in so many milliseconds while the person tries to meddle with the computer's
  /// turn: "3600 h0hhhM key; " is die 1 coming to rest on SHIP, Magenta to play.
  std::string watch(int milliseconds, const Throws& throws = {}) {
    std::string seen;
    std::string before = look();
    heard();
    for (int time = 0; time < milliseconds;) {
      if (time % 250 == 0 && before[5] != 'O') {
        click("Label2(3)");
        dragDice("01234");
      }
      if (throws.contains(time)) scriptThrow(throws.at(time));
      desktop.advance(10);
      time += 10;
      const std::string sounds = heard();
      const bool news = look() != before || !sounds.empty();
      before = look();
      if (news) seen += std::to_string(time) + " " + before + " " + sounds + "; ";
    }
    return seen;
  }
  std::string look() {
    const std::string score = at("Label9").visible ? " " + at("Label9").text : "";
    return places() + at("Label1").text.front() + score;
  }
};

const struct Turn {
  Throws throws;
  std::string seen;
} longTurn{{{0, "56264"}, {14000, "--3--"}, {17000, "--1--"}},
           "1000 hhhhhM cupdice; 3020 h?hhhM ; 3600 h0hhhM key; 5620 ?0hhhM ; 6100 10hhhM key; 8120 10hh?M ; "
           "9000 10hh2M key; 11020 10h?2M ; 11800 10h32M key; 14800 10h32M cupdice; 17800 10h32M cupdice; "
           "19820 10?32M ; 20500 10432T 7 SCORED key dive1; 24500 hhhhhO ; "},
    oneThrow{{{0, "65466"}},
             "1000 hhhhhM cupdice; 3020 ?hhhhM ; 3500 0hhhhM key; 5520 0?hhhM ; 6100 01hhhM key; "
             "8120 01?hhM ; 8800 012hhM key; 10820 012?hM ; 11600 0123hM key; 13620 0123?M ; "
             "14500 01234T 12 SCORED key aooga; 18500 hhhhhO ; "},
    lostWithShipManned{{{0, "11236"}, {5000, "1123-"}, {8000, "5123-"}},
                       "1000 hhhhhM cupdice; 3020 hhhh?M ; 3900 hhhh0M key; 6900 hhhh0M cupdice; "
                       "9900 hhhh0M cupdice; 11150 hhhh0T 0 SCORED wateresplash; 15150 hhhhhO ; "};

TEST(ComputersTurn, RunsToTheMillisecondWhateverThePersonTries) {
  for (const Turn& turn : {longTurn, oneThrow, lostWithShipManned}) {
    Onlooker program;
    EXPECT_EQ(program.watch(40000, turn.throws), turn.seen);
    EXPECT_TRUE(program.at("Label2(3)").enabled);
  }
}

TEST(ComputersTurn, GlidesInAStraightLineAboveAllElse) {
  Onlooker program;
  program.scriptThrow("65466");
  program.desktop.pressKey(program.board, platform::Key::T);
  EXPECT_EQ(program.desktop.said.back(), "The computer is playing.");
  std::ostringstream seen;
  for (const int wait : {3020, 240, 240, 10120, 440, 440}) {
    program.desktop.advance(wait);
    const platform::Widget& die = *program.desktop.find(program.board)->drawingOrder().back();
    seen << die.spokenName << " " << die.left << "/" << die.top << "; ";
  }
  EXPECT_EQ(
      seen.str(),
      "6, die 1, moving 5179.2/4089.6; 6, die 1, moving 3969.6/2764.8; 6, die 1, on SHIP 2760/1440; "
      "6, die 5, moving 9917.33/4245.33; 6, die 5, moving 6338.67/5242.67; 6, die 5, on CARGO 2760/6240; ");
  const std::vector<std::string>& said = program.desktop.said;
  EXPECT_EQ(said[3] + " " + said[4], "Throw 1: 6, 5, 4, 6, 6. Magenta: 6 on SHIP.");
  EXPECT_EQ(said.back(), "Magenta: 6 on CARGO. Turn over. Magenta scored 12. Magenta has 12.");
}

TEST(ComputersTurn, LeavesNothingToANewGame) {
  for (const int time : {500, 3300, 7000, 17500}) {  // Before the throw, gliding, choosing, rolling.
    SCOPED_TRACE(time);
    Onlooker program;
    program.watch(time, longTurn.throws);
    program.desktop.chance().script.clear();
    program.click("Label2(4)");
    program.desktop.advance(10000);
    EXPECT_EQ(program.look() + program.faces() + program.heard(), "hhhhhO-----shipbell");
    program.throwFaces("65412");
    program.dragDice("01234");
    program.desktop.advance(4000);
    EXPECT_TRUE(oneThrow.seen.starts_with(program.watch(15000, oneThrow.throws)));
  }
}

}  // namespace
