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
    const std::string toPlay =
        "ORANGE TO PLAY, ROUND 1 OF 4, THROW " + std::string(third.empty() ? "1" : "3");
    EXPECT_TRUE(game.view().starts_with(toPlay));
    game.heard();
    if (third.empty()) game.dragDice("----" + icons.substr(4));
    game.desktop.advance(1);
    EXPECT_EQ(game.heard(), sounds);
    const bool over = !points.empty();
    EXPECT_TRUE(game.view().starts_with(over ? "TURN OVER, ROUND 1 OF 4, " + game.faces() : toPlay));
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
    game.options.soundOn = 3 - static_cast<int>(players);  // 1, and two values that are not.
    std::vector<std::size_t> totals(players);
    for (std::size_t turn = 0; turn < 4 * players; ++turn) {
      SCOPED_TRACE("turn " + std::to_string(turn) + " for " + std::to_string(players));
      const std::size_t seat = turn % players;
      const auto& [name, colour] = seats[seat];
      const std::string round = ", ROUND " + std::to_string(turn / players + 1) + " OF 4, ";
      EXPECT_EQ(game.at(platform::indexed("Label5", seat)).left, lefts[seat]);
      game.drag(0, 600, 5000);  // Not before it is thrown.
      EXPECT_TRUE(game.view().starts_with(name + " TO PLAY" + round + "----- hhhhh, ")) << game.view();
      EXPECT_NE(game.at("Label8").visible, true);
      const std::size_t points = turn % 3 == 1 ? 0 : 2 + turn % 6;
      totals[seat] += points;
      const std::string faces = points == 0 ? "11121" : "6541" + std::to_string(points - 1);
      for (int number = 0; number < (turn % 3 == 0 ? 1 : 3); ++number) game.throwFaces(faces);
      EXPECT_TRUE(wears(game, colour));
      EXPECT_EQ(game.at("Label2(3)").textColour, colour);
      EXPECT_EQ(game.at("Label8").textColour, colour);
      if (points > 0) game.dragDice("01234");
      EXPECT_EQ(!game.heard().empty(), game.options.soundOn == 1);
      game.desktop.advance(points == 0 ? 1250 + 4000 - tests::aWholeThrow - 1 : 3999);
      for (const char* button : {"Label2(2)", "Label2(3)", "Label2(4)"}) game.click(button);
      game.drag(0, 600, 5000);
      std::string over = "TURN OVER" + round + faces + (points == 0 ? " hhhhh" : " 01234") + ", hint, " +
                         std::to_string(points) + " SCORED,";
      for (const std::size_t total : totals) over += " " + std::to_string(total);
      EXPECT_EQ(game.view() + game.heard(), over);
      EXPECT_TRUE(wears(game, colour));
      game.desktop.advance(1);
    }
    EXPECT_EQ(game.at("Label6").text, "END OF GAME");
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
    for (const int wait : {400, 1600}) {  // A new game, and one more in mid-throw: nothing comes later.
      game.click("Label2(4)");
      EXPECT_EQ(game.heard(), "shipbell");
      game.desktop.advance(10000);
      EXPECT_EQ(game.view().substr(0, 31),
                "ORANGE TO PLAY, ROUND 1 OF 4, " + std::string(wait == 400 ? "-" : "T"));
      EXPECT_EQ(game.faces() + game.heard(), "-----");
      EXPECT_TRUE(wears(game, seats[0].second));
      EXPECT_EQ(game.at("Label2(3)").background, platform::black);
      game.click("Label2(3)");
      game.desktop.advance(wait);
      EXPECT_EQ(game.heard(), "cupdice");
    }
  }
}
