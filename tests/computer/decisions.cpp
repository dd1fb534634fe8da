// Which dice the computer sets aside for which icons, and how many points that makes.
#include "computer/decisions.h"

#include "simulated_program.h"

namespace {

// Sets dice aside until nothing is worth keeping. A die is at home ("." in `places`) or on the icon of that
// index. "10 01" says that die 1 went to SHIP, then die 0 to CAPTAIN.
std::string setAside(std::string_view faces, std::string places, int throwCount) {
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
    made += (made.empty() ? "" : " ") + std::to_string(choice->die) + places[choice->die];
  }
  return made;
}

TEST(Decisions, FollowTheRulesOfTheThrow) {
  // The throw, the faces, the places, and what is chosen.
  for (const auto& [throwCount, faces, places, chosen] : tests::rows<4>(R"(
      1 56264 ..... 10+01+42+33   1 65466 ..... 00+11+22+33+44   1 54321 ..... 01+12   1 66123 ..... 00
      1 11233 ..... -             1 65443 012.. -                1 65454 012.. 33      1 65554 01.32 24
      2 35416 .1... 40+22         2 65344 01..2 33               2 65344 01.32 -       2 65444 012.. 33+44
      2 65343 01.2. -             3 65144 01.32 24               3 65411 012.. 33+44   3 65011 01... -
      3 64211 02... -             3 61245 0.... 41+32+13+24      3 11111 01234 -)")) {
    EXPECT_EQ(setAside(faces, places, std::stoi(throwCount)), chosen) << throwCount << " " << faces;
  }
}

}  // namespace
