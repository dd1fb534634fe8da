// Which dice the computer sets aside for which icons, and how many points that makes.
#include "computer/decisions.h"

#include <cmath>

#include "game/numbers.h"
#include "simulated_program.h"

namespace {

// Sets dice aside until nothing is worth keeping. A die is at home ("." in `places`) or on the icon of that
// index. " 10 01" says that die 1 went to SHIP, then die 0 to CAPTAIN.
std::string setAside(std::string_view faces, std::string& places, int throwCount) {
  std::string made;
  while (made.size() < 18) {
    std::array<int, game::diceCount> shown{};
    std::array<bool, game::diceCount> atHome{};
    computer::IconsTaken taken{};
    for (std::size_t i = 0; i < game::diceCount; ++i) {
      shown[i] = faces[i] - '0';
      atHome[i] = places[i] == '.';
      taken[i] = places.find("01234"[i]) != std::string::npos;
    }
    const auto choice = computer::decide(shown, atHome, taken, throwCount);
    if (!choice) break;
    places[choice->die] = "01234"[static_cast<std::size_t>(choice->icon)];
    made += " " + std::to_string(choice->die) + places[choice->die];
  }
  return made;
}

TEST(Decisions, FollowTheRulesOfTheThrow) {
  std::istringstream rows(  // The throw, the faces, the places, and what is chosen.
      "1 56264 ..... 10 01 42 33 ; 1 65466 ..... 00 11 22 33 44 ; 1 54321 ..... 01 12 ; 1 66123 ..... 00 ;"
      "1 11233 ..... ; 1 65443 012.. ; 1 65454 012.. 33 ; 1 65554 01.32 24 ; 2 35416 .1... 40 22 ;"
      "2 65344 01..2 33 ; 2 65344 01.32 ; 2 65444 012.. 33 44 ; 2 65343 01.2. ; 3 65144 01.32 24 ;"
      "3 65411 012.. 33 44 ; 3 65011 01... ; 3 64211 02... ; 3 61245 0.... 41 32 13 24 ; 3 11111 01234 ;");
  int throwCount = 0;
  for (std::string faces, places, chosen;
       rows >> throwCount >> faces >> places && getline(rows, chosen, ';');) {
    EXPECT_EQ(setAside(faces, places, throwCount) + " ", chosen) << throwCount << " " << faces;
  }
}

TEST(Decisions, TakeWhatEveryFirstThrowOffers) {
  for (int number = 0; number < 6 * 6 * 6 * 6 * 6; ++number) {
    std::string faces;
    for (int rest = number; faces.size() < game::diceCount; rest /= 6) faces += "123456"[rest % 6];
    // The rule once more: the first 6, 5 and 4; if all three are there, what else is a 5 or a 6.
    std::string expected;
    std::string left = faces;
    for (const std::string icon : {"0 6", "1 5", "2 4", "3 56", "4 56"}) {
      const auto die = left.find_first_of(icon.substr(2));
      if (die == std::string::npos || (icon > "3" && expected.size() < 9)) continue;
      left[die] = '.';
      expected += " " + std::to_string(die) + icon[0];
    }
    std::string places = ".....";
    ASSERT_EQ(setAside(faces, places, 1), expected) << faces;
  }
}

TEST(Decisions, MakeThePointsThatTheOddsPromise) {
  constexpr double expected = 5.24961;  // By bench/odds.
  constexpr int turns = 2000;
  double sum = 0;
  double sumOfSquares = 0;
  tests::SimulatedProgram program;
  for (int turn = 0; turn < turns; ++turn) {
    program.resumeAgainstComputer(1, 1);
    for (int seconds = 0; program.at("Label1").text != "TURN OVER"; ++seconds) {
      ASSERT_LT(seconds, 60);
      program.desktop.advance(1000);
    }
    const double points = game::numberShown(program.at("Label9").text);
    sum += points;
    sumOfSquares += points * points;
    program.desktop.closeWindow(program.board);
    program.heard();
  }
  const double mean = sum / turns;
  const double standardError = std::sqrt((sumOfSquares / turns - mean * mean) / (turns - 1));
  EXPECT_NEAR(mean, expected, 4 * standardError);
}

}  // namespace
