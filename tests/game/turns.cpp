// How a turn is scored and handed over, four rounds of turns, how the game ends and starts afresh.

#include "simulated_program.h"

static const std::array<std::pair<std::string, platform::Colour>, 4> seats{{{"ORANGE", {255, 128, 0}},
                                                                            {"MAGENTA", {255, 0, 255}},
                                                                            {"YELLOW", {255, 255, 0}},
                                                                            {"GREEN", {0, 255, 0}}}};

// Whether the board shows the colour of a seat.
static bool wears(tests::SimulatedProgram& game, const platform::Colour& colour) {
  bool all = game.at("Label1").textColour == colour && game.at("Label6").textColour == colour;
  for (std::size_t i = 0; i < 5; ++i) all = all && game.die(i).background == colour;
  return all;
}

TEST(Turn, IsScoredOrLost) {
  // First throw, icons its dice go to, third throw if any, points unless the turn goes on, sounds of its end.
  for (const auto& [first, icons, third, points, sounds] : tests::rows<5>(R"(
      66654 00012 - 0 key+wateresplash+divboard   66543 00123 - 3 key+divboard   66612 00034 - 3 key+divboard
      65433 01234 - 6 key+divboard   65443 01234 - 7 key+dive1    65454 01234 - 9 key+dive1
      65455 01234 - 10 key+4bells    65465 01234 - 11 key+aooga   45666 21034 - 12 key+aooga
      11111 - 65123 0 wateresplash   11111 - 64123 0 wateresplash   11111 - 54123 0 wateresplash
      61111 0 15521 0 wateresplash   11111 - 12654 - -   61111 3 15421 - -   65411 0123 11112 - -)")) {
    SCOPED_TRACE(first + " " + third);
    tests::SimulatedProgram game(3);
    game.at("Label5(0)").text = "36";
    game.throwFaces(first);
    game.dragDice(icons.substr(0, 4));
    if (!third.empty()) {
      game.throwFaces("11111");
      game.scriptThrow(third);
      game.click("Label2(3)");
      game.desktop.advance(1249);
    }
    const std::string throwNumber = ", ROUND 1 OF 4, THROW " + std::string(third.empty() ? "1" : "3");
    EXPECT_TRUE(game.view().starts_with("ORANGE TO PLAY" + throwNumber));
    game.heard();
    third.empty() ? game.dragDice("----" + icons.substr(4)) : game.desktop.advance(1);
    EXPECT_EQ(game.heard(), sounds);
    const bool over = !points.empty();
    EXPECT_TRUE(game.view().starts_with(over ? "TURN OVER, ROUND 1 OF 4, " + game.faces()
                                             : "ORANGE TO PLAY" + throwNumber));
    const std::string total = over ? points + " SCORED, " + std::to_string(36 + std::stoi(points)) : "36";
    EXPECT_TRUE(game.view().ends_with(", hint, " + total + " 0 0")) << game.view();
    game.desktop.advance(4000);
    EXPECT_TRUE(game.view().starts_with(over ? "MAGENTA TO PLAY" : "ORANGE TO PLAY"));
  }
}

TEST(Game, GivesEverySeatFourTurns) {
  for (const std::vector<float>& lefts :
       {std::vector<float>{6540, 8440}, {5710, 7490, 9270}, {5160, 6820, 8480, 10140}}) {
    const std::size_t players = lefts.size();
    tests::SimulatedProgram game(static_cast<int>(players));
    for (std::size_t i = 0; i < players; ++i)
      EXPECT_EQ(game.at(platform::indexed("Label5", i)).left, lefts[i]);
    game.options.soundOn = 3 - static_cast<int>(players);  // 1, and two values that are not.
    std::vector<std::size_t> totals(players);
    for (std::size_t turn = 0; turn < 4 * players; ++turn) {
      SCOPED_TRACE("turn " + std::to_string(turn) + " for " + std::to_string(players));
      const auto& [name, colour] = seats[turn % players];
      const std::string round = ", ROUND " + std::to_string(turn / players + 1) + " OF 4, ";
      game.drag(0, 600, 5000);  // Not before it is thrown.
      const std::string fresh = "----- hhhhh, " + std::string(turn == 0 ? "0" : "hint, ");
      EXPECT_TRUE(game.view().starts_with(name + " TO PLAY" + round + fresh)) << game.view();
      const bool lost = turn % 3 == 1;
      const std::string faces = lost ? "11121" : "6541" + std::to_string(1 + turn % 6);
      for (std::size_t i = 0; i < (turn % 3 == 0 ? 1 : 3); ++i)
        game.throwFaces(faces), game.drag(0, 7680, 4320);
      EXPECT_TRUE(wears(game, colour) && game.at("Label2(3)").textColour == colour);
      EXPECT_EQ(game.at("Label8").textColour, colour);
      if (!lost) game.dragDice("01234"), totals[turn % players] += 2 + turn % 6;
      EXPECT_EQ(!game.heard().empty(), game.options.soundOn == 1);
      game.desktop.advance(lost ? 4000 - (tests::aWholeThrow - 1250) - 1 : 3999);
      for (const char* button : {"Label2(2)", "Label2(3)", "Label2(4)"}) game.click(button);
      for (std::size_t i = 0; i < 5; ++i) game.drag(i, 600, 5000);
      std::string over = "TURN OVER" + round + faces +
                         (lost ? " hhhhh, hint, 0" : " 01234, hint, " + std::to_string(2 + turn % 6)) +
                         " SCORED,";
      for (const std::size_t total : totals) over += " " + std::to_string(total);
      EXPECT_EQ(game.view() + game.heard(), over);
      EXPECT_TRUE(wears(game, colour));
      game.desktop.advance(1);
    }
    game.desktop.advance(250);
    EXPECT_EQ(game.at("Label6").text, "END OF GAME");
    game.click("Label2(4)");
    EXPECT_EQ(game.heard(), game.options.soundOn == 1 ? "klaxon shipbell" : "");
  }
}

// Comes to the end of the game with these totals ("30 30"): the last turn scores nothing.
static void endWith(tests::SimulatedProgram& game, const std::string& totals) {
  std::istringstream numbers(totals);
  game.state = {.currentSeat = -1, .roundNumber = 4, .seatScore = {}};
  for (std::string total; numbers >> total;)
    game.at("Label5(" + std::to_string(++game.state.currentSeat) + ")").text = total;
  game.throwFaces("66654");
  game.dragDice("00012");
  game.heard();
  game.desktop.advance(4000);
}

TEST(Game, NamesTheWinnerOrADraw) {
  for (const auto& [totals, seat, outcome] : tests::rows<3>(R"(
      30+30 0 draw   20+35+35 1 draw   10+25+40+40 2 draw   0+0+0+0 0 draw   40+10+10+10 0 won
      12+30+18 1 won   9+10 1 won   30+30+31 2 won   5+45+9+48 3 won)")) {
    SCOPED_TRACE(totals);
    tests::SimulatedProgram game(1 + static_cast<int>(std::count(totals.begin(), totals.end(), ' ')));
    const auto& [name, colour] = seats[std::stoul(seat)];
    const bool draw = outcome == "draw";
    for (const int ticks : {21, 33000}) {  // Once for seconds, and once for hours.
      endWith(game, totals);
      EXPECT_EQ(game.view(),
                (draw ? "IT'S A DRAW" : name + " HAS WON!") + ", END OF GAME, ----- hhhhh, hint, " + totals);
      EXPECT_TRUE(game.desktop.said.back().starts_with(
          "End of game. " + (draw ? "IT'S A DRAW." : name + " HAS WON!") + " Orange "));
      game.desktop.pressKey(game.board, platform::Key::W);
      EXPECT_EQ(game.desktop.said.back(),
                draw ? "IT'S A DRAW. END OF GAME." : name + " HAS WON! END OF GAME.");
      EXPECT_TRUE(wears(game, colour) && game.at("Label2(3)").background == colour);
      EXPECT_EQ(game.heard(), draw ? "klaxon" : "");
      for (int tick = 0; tick < ticks; ++tick) {
        ASSERT_EQ(game.at("Label1").textColour, !draw && tick % 2 == 1 ? platform::white : colour) << tick;
        ASSERT_EQ(game.heard(), !draw && tick % 8 == 1 ? "klaxon" : "") << tick;
        ASSERT_TRUE(game.click("Label2(3)"));  // No throw is taken.
        game.desktop.advance(250);
      }
      game.click("Label2(4)");
      game.desktop.advance(1);
    }
  }
}

TEST(Game, StartsAfreshFromEveryState) {
  using Program = tests::SimulatedProgram;
  // How each is reached, and the throw counter, which stays until the next throw.
  const std::pair<std::function<void(Program&)>, std::string> states[] = {
      {[](Program& game) { game.click("Label2(3)"); }, "THROW 1, "},
      {[](Program& game) { game.click("Label2(3)"), game.desktop.advance(400); }, "THROW 1, "},
      {[](Program& game) { game.click("Label2(3)"), game.desktop.advance(1600); }, "THROW 1, "},
      {[](Program& game) { game.throwFaces("65423"), game.dragDice("0-3"), game.drag(4, 600, 5000); },
       "THROW 1, "},
      {[](Program& game) {
         for (int i = 0; i < 3; ++i) game.throwFaces("65412");
       },
       "THROW 3, "},
      {[](Program& game) { endWith(game, "3 30 4"), game.desktop.advance(250); }, ""},
      {[](Program& game) { endWith(game, "3 30 30"); }, ""},
  };
  for (const auto& state : states) {
    SCOPED_TRACE(&state - states);
    const auto& [reach, counter] = state;
    Program game(3);
    reach(game);
    game.heard();
    game.click("Label2(4)");
    EXPECT_EQ(game.heard(), "shipbell");
    for (const int wait : {1, 10000}) {  // Nothing of a throw or of the flashing comes later.
      game.desktop.advance(wait);
      EXPECT_EQ(game.view() + game.heard(),
                "ORANGE TO PLAY, ROUND 1 OF 4, " + counter + "----- hhhhh, hint, 0 0 0");
      EXPECT_TRUE(wears(game, seats[0].second) && game.at("Label2(3)").background == platform::black);
    }
    game.throwFaces("65411");
    EXPECT_EQ(game.view(), "ORANGE TO PLAY, ROUND 1 OF 4, THROW 1, 65411 hhhhh, hint, 0 0 0");
    game.dragDice("01234");
    game.desktop.advance(3999);
    EXPECT_EQ(game.view(), "TURN OVER, ROUND 1 OF 4, 65411 01234, hint, 2 SCORED, 2 0 0");
  }
}
