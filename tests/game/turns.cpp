// How a turn is scored and handed over, four rounds of turns, how the game ends and starts afresh.

#include "simulated_program.h"

static const std::pair<std::string, platform::Colour> seats[] = {
    {"ORANGE", {255, 128, 0}}, {"MAGENTA", {255, 0, 255}}, {"YELLOW", {255, 255, 0}}, {"GREEN", {0, 255, 0}}};

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
    game.heard();
    if (third.empty()) game.dragDice("----" + icons.substr(4));
    game.desktop.advance(1);
    EXPECT_EQ(game.heard(), sounds);
    const bool over = !points.empty();
    const std::string total = over ? points + " SCORED, " + std::to_string(36 + std::stoi(points)) : "36";
    EXPECT_TRUE(game.view().ends_with(", hint, " + total + " 0 0")) << game.view();
    EXPECT_EQ(game.at("Label1").text, over ? "TURN OVER" : "ORANGE TO PLAY");
  }
}

TEST(Game, GivesEverySeatFourTurns) {
  // Where the totals stand, and what they come to.
  const std::pair<std::vector<float>, std::string> games[] = {
      {{6540, 8440}, "9 6"}, {{5710, 7490, 9270}, "12 0 12"}, {{5160, 6820, 8480, 10140}, "9 6 9 9"}};
  for (const auto& [lefts, totals] : games) {
    const std::size_t players = lefts.size();
    tests::SimulatedProgram game(static_cast<int>(players));
    for (std::size_t turn = 0; turn < 4 * players; ++turn) {
      SCOPED_TRACE("turn " + std::to_string(turn) + " for " + std::to_string(players));
      const auto& [name, colour] = seats[turn % players];
      const std::string round = ", ROUND " + std::to_string(turn / players + 1) + " OF 4, ";
      EXPECT_EQ(game.at(platform::indexed("Label5", turn % players)).left, lefts[turn % players]);
      game.drag(0, 600, 5000);  // Not before it is thrown.
      EXPECT_TRUE(game.view().starts_with(name + " TO PLAY" + round + "----- hhhhh, ")) << game.view();
      const bool lost = turn % 3 == 1;
      for (int number = 0; number < (lost ? 3 : 1); ++number) game.throwFaces(lost ? "11121" : "65421");
      EXPECT_TRUE(wears(game, colour));
      EXPECT_EQ(game.at("Label2(3)").textColour, colour);
      EXPECT_EQ(game.at("Label8").textColour, colour);
      if (!lost) game.dragDice("01234");
      game.desktop.advance(lost ? 1250 + 4000 - tests::aWholeThrow - 1 : 3999);
      for (const char* button : {"Label2(2)", "Label2(3)", "Label2(4)"}) game.click(button);
      game.drag(0, 600, 5000);
      EXPECT_TRUE(game.view().starts_with("TURN OVER" + round + (lost ? "11121 hhhhh" : "65421 01234")));
      game.desktop.advance(1);
    }
    EXPECT_TRUE(game.view().ends_with(", END OF GAME, ----- hhhhh, hint, " + totals)) << game.view();
  }
}

TEST(Game, NamesTheWinnerOrADraw) {
  for (const auto& [totals, seat, outcome] : tests::rows<3>(R"(
      30+30 0 draw   20+35+35 1 draw   10+25+40+40 2 draw   0+0+0+0 0 draw   40+10+10+10 0 won
      12+30+18 1 won   9+10 1 won   30+30+31 2 won   5+45+9+48 3 won)")) {
    SCOPED_TRACE(totals);
    const int players = 1 + static_cast<int>(std::count(totals.begin(), totals.end(), ' '));
    tests::SimulatedProgram game(players);
    const auto& [name, colour] = seats[std::stoul(seat)];
    const bool draw = outcome == "draw";
    // The last turn scores nothing.
    game.state = {.currentSeat = players - 1, .roundNumber = 4, .seatScore = {}};
    std::istringstream numbers(totals);
    for (std::size_t i = 0; i < static_cast<std::size_t>(players); ++i)
      numbers >> game.at(platform::indexed("Label5", i)).text;
    game.throwFaces("66654");
    game.dragDice("00012");
    game.heard();
    game.desktop.advance(4000);
    const std::string who = draw ? "IT'S A DRAW" : name + " HAS WON!";
    EXPECT_EQ(game.view(), who + ", END OF GAME, ----- hhhhh, hint, " + totals);
    EXPECT_TRUE(game.desktop.said.back().starts_with("End of game. " + who + (draw ? "." : "") + " Orange "));
    EXPECT_TRUE(wears(game, colour));
    EXPECT_EQ(game.at("Label2(3)").background, colour);
    EXPECT_EQ(game.heard(), draw ? "klaxon" : "");
    for (int tick = 0; tick < 21; ++tick) {
      ASSERT_EQ(game.at("Label1").textColour, !draw && tick % 2 == 1 ? platform::white : colour) << tick;
      ASSERT_EQ(game.heard(), !draw && tick % 8 == 1 ? "klaxon" : "") << tick;
      game.click("Label2(3)");  // No throw is taken.
      game.desktop.advance(250);
    }
    game.click("Label2(4)");
    EXPECT_EQ(game.heard(), "shipbell");
    game.desktop.advance(10000);
    EXPECT_TRUE(game.view().starts_with("ORANGE TO PLAY, ROUND 1 OF 4, ----- hhhhh,")) << game.view();
    EXPECT_EQ(game.heard(), "");
    EXPECT_TRUE(wears(game, seats[0].second));
    EXPECT_EQ(game.at("Label2(3)").background, platform::black);
  }
}
