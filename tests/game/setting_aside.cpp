// Where dropped dice go, and who may move them.

#include "simulated_program.h"

TEST(SettingAside, FollowsTheIconsAndTheHomeRow) {
  // Face of all dice, icons some lie on, die dropped and where ('-': just let go), places, sounds.
  for (const auto& [face, icons, number, left, top, places, sounds] : tests::rows<7>(R"(
      6 - 2 2700 1500 hh0hh key         5 - 2 2700 1500 hhhhh key+click   1 - 2 2700 1500 hhhhh key+click
      6 - 2 2700 2700 hhhhh key+click   5 - 2 2700 2700 hh1hh key         4 - 2 2700 2700 hhhhh key+click
      5 - 2 2700 3900 hhhhh key+click   4 - 2 2700 3900 hh2hh key         3 - 2 2700 3900 hhhhh key+click
      6 - 2 2700 5100 hh3hh key         1 - 2 2700 5100 hh3hh key         2 - 2 2700 6300 hh4hh key
      6 - 2 2273 953 hh0hh key          6 - 2 3734.5 2414.5 hh0hh key     6 - 2 2272.5 1440 hh?hh -
      6 - 2 3735 1440 hh?hh -           6 - 2 2760 952.5 hh?hh -          5 - 2 2760 2414.5 hhhhh key+click
      5 - 2 2760 2415 hh1hh key         4 - 2 2760 3614.5 hhhhh key+click 4 - 2 2760 3615 hh2hh key
      1 - 2 2760 4814.5 hhhhh key+click 1 - 2 2760 4815 hh3hh key         1 - 2 2760 6014.5 hh3hh key
      1 - 2 2760 6015 hh4hh key         1 - 2 2760 7214.5 hh4hh key       1 - 2 2760 7215 hh?hh -
      1 - 2 7700 4300 hhhhh click       1 - 1 10080 4320 hhhhh click      1 - 3 6480 4320 hhhhh click+click
      1 - 0 6100 4320 hhhhh click       1 - 1 6100 4320 hhhhh click+click 1 - 2 4792.5 4320 hh?hh -
      1 - 2 11055 4320 hh?hh -          1 - 2 4793 3833 hhhhh click+click 1 - 2 11054.5 5294.5 hhhhh click
      1 - 2 7680 3832.5 hh?hh -         1 - 2 7680 5295 hh?hh -           1 - 2 2760 5040 hh3hh key
      6 - 2 2760 1440 hh0hh key         1 - 2 2760 6240 hh4hh key         1 3 2 2760 5040 3hhhh key+click
      6 0 2 2700 1500 0h0hh key         6 3 2 2700 5100 3hhhh key+click   6 -4 2 2700 6300 h4hhh key+click
      6 0 0 - - 0hhhh key               6 3 0 - - hhhhh key+click         6 -4 1 - - hhhhh key+click)")) {
    SCOPED_TRACE(face + " at " + left + ", " + top);
    tests::SimulatedProgram game(2);
    game.throwFaces(std::string(5, face[0]));
    game.dragDice(icons);
    game.heard();
    const std::size_t die = std::stoul(number);
    if (left.empty()) game.desktop.drag(game.board, game.middleOf(die, 2), game.middleOf(die, 2));
    if (!left.empty()) game.drag(die, std::stof(left), std::stof(top));
    EXPECT_TRUE(places[die] != '?' || game.die(die).left == std::stof(left));
    EXPECT_EQ(game.places() + " " + game.heard(), places + " " + sounds);
  }
}
