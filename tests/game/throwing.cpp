// Which dice a throw throws, how they come to rest to the millisecond, and that they are fair.

#include "game/throwing.h"

#include "simulated_program.h"

TEST(Throwing, RollsAndSettlesToTheMillisecond) {
  tests::SimulatedProgram game(2);
  // What chance says: for each die how many hundredths of draws, and, for a die at home, each draw in sixths;
  // where the dice then lie, and what they show. A die not drawn shows a 1, or the face it had.
  const std::tuple<std::deque<double>, std::string, std::string> throws[] = {
      {{0, 0.0099, 0.01, 0.999, 0.03, 0, 0.99, 0.5, 0.019, 0.67},
       "hhhhh",
       "250 33333; 1000 13333; 1250 11333; 1500 11633; 1750 11643; 2000 11645; 1250 times"},
      {{0, 0.5, 0.01, 0.7, 0.5, 0.01, 0.2}, "h3h?h", "5 31343; 250 11343; 750 11543; 1250 11542; 447 times"},
      {{0.5, 0.5, 0.5, 0.5, 0.5}, "?????", "0 times"}};
  int number = 0;
  for (const auto& [script, places, seen] : throws) {
    ++number;
    if (number == 2) game.dragDice("-3");  // This one is thrown no more,
    if (number == 2) game.drag(3, 600, 5000);
    for (std::size_t die = 0; number == 3 && die < 5; ++die) game.drag(die, 600, 5000);  // and then none.
    EXPECT_EQ(game.places(), places);
    game.heard();
    game.desktop.chance().script = script;
    game.click("Label2(3)");
    EXPECT_TRUE(game.desktop.chance().script.empty());
    EXPECT_EQ(game.at("Label8").text + " " + game.heard(), "THROW " + std::to_string(number) + " cupdice");
    EXPECT_TRUE(game.at("Label8").visible && game.at("Label10").visible);
    EXPECT_EQ(game.at("Label2(3)").enabled, number < 3);
    game.click("Label2(3)");  // Rolling dice can be neither thrown nor dragged.
    game.drag(0, 600, 5000);
    EXPECT_EQ(game.watchDice(number == 1 ? 2000 : 1250), seen);
    EXPECT_EQ(game.desktop.chance().reseeds, number);
  }
}

// How far from chance the faces of 60,000 dice are that are thrown in a row.
static double deviation() {
  platform::ClockChance chance;
  std::array<double, 6> counts{};
  constexpr int dice = 60000;
  for (int die = 0; die < dice; ++die) {
    if (die % 5 == 0) chance.reseed();
    ++counts[static_cast<std::size_t>(game::drawFace(chance, 0)) - 1];
  }
  double sum = 0;
  for (std::size_t face = 0; face < counts.size(); ++face) {
    // One die in a hundred is not drawn at all and shows a 1.
    const double mean = (0.99 / 6 + (face == 0 ? 0.01 : 0)) * dice;
    sum += (counts[face] - mean) * (counts[face] - mean) / mean;
  }
  return sum;
}

TEST(Throwing, IsFair) {
  // Luck alone exceeds the limit once in a thousand times; so it may try twice, and fails once in a million.
  const double first = deviation(), second = deviation();
  EXPECT_NE(first, second);  // Each run of the program throws other dice.
  EXPECT_LT(std::min(first, second), 20.5);
}
