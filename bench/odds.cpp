// How strong the computer is, and how strong anyone can be: exact figures, from every throw and every way to
// set the dice aside. A player here knows the dice and wants points; a turn of theirs is the same whatever
// the score stands at. Takes no time and no arguments: build/release/odds

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "computer/decisions.h"
#include "game/setting_aside.h"
#include "game/state.h"

namespace {

using game::accepts;
using game::IconKind;

constexpr std::size_t crew = 3;
constexpr std::size_t cargo = 4;
constexpr std::size_t home = game::icons.size();
constexpr std::size_t elsewhere = home + 1;  // Let go on the bare board: not thrown again, and on no icon.

using Faces = std::array<int, game::diceCount>;
using Places =
    std::array<std::size_t, game::diceCount>;  // Of each die: the index of an icon, or one of these.
using Chances = std::array<double, 13>;        // Of each score, from 0.

constexpr Places allHome{home, home, home, home, home};

/// The ways to lay the dice after a throw that a player considers. Dice may be taken back from the icons.
using Player = std::function<std::vector<Places>(const Faces&, int throwCount)>;

double mean(const Chances& chances) {
  double sum = 0;
  for (std::size_t score = 0; score < chances.size(); ++score) {
    sum += chances[score] * static_cast<double>(score);
  }
  return sum;
}

bool allOnIcons(const Places& places) {
  return std::all_of(places.begin(), places.end(), [](std::size_t place) { return place < home; });
}

std::size_t diceAt(const Places& places, std::size_t place) {
  return static_cast<std::size_t>(std::count(places.begin(), places.end(), place));
}

/// What a player's turn comes to who always takes the best of the ways considered.
class Turn {
 public:
  explicit Turn(Player player) : player_(std::move(player)) {}

  // A die that shows nothing yet and is not drawn at all shows 1.
  Chances outcome() { return throwDice(std::vector<int>(game::diceCount, 1), {}, 1); }

 private:
  using Dice = std::vector<int>;  // Faces. In order, so that no two keys mean the same dice.

  /// One die after another comes to rest.
  const Chances& throwDice(Dice rolling, Dice lying, int throwCount) {
    std::sort(rolling.begin(), rolling.end());
    std::sort(lying.begin(), lying.end());
    const auto [entry, isNew] = known_.try_emplace({rolling, lying, throwCount});
    Chances& chances = entry->second;
    if (!isNew) return chances;
    if (rolling.empty()) return chances = setAside(lying, throwCount);
    const int before = rolling.back();
    rolling.pop_back();
    lying.push_back(0);
    for (int face = 1; face <= 6; ++face) {
      lying.back() = face;
      // One time in a hundred a die is not drawn at all and keeps its face.
      const double chance = 0.99 / 6 + (face == before ? 0.01 : 0);
      const Chances& rest = throwDice(rolling, lying, throwCount);
      for (std::size_t score = 0; score < rest.size(); ++score) chances[score] += chance * rest[score];
    }
    return chances;
  }

  Chances setAside(const Dice& lying, int throwCount) {
    const auto shown = [&lying](int face) { return std::count(lying.begin(), lying.end(), face) > 0; };
    const bool last = throwCount == game::throwsPerTurn;
    Chances best{1};
    if (last && !(shown(6) && shown(5) && shown(4))) return best;
    Faces faces{};
    std::copy(lying.begin(), lying.end(), faces.begin());
    for (const Places& places : player_(faces, throwCount)) {
      Chances chances{};
      if (allOnIcons(places)) {
        int points = 0;
        for (std::size_t die = 0; die < faces.size(); ++die) points += places[die] >= crew ? faces[die] : 0;
        chances[static_cast<std::size_t>(points)] = 1;
      } else if (!last) {
        Dice rolling;
        Dice kept;
        for (std::size_t die = 0; die < faces.size(); ++die) {
          (places[die] == home ? rolling : kept).push_back(faces[die]);
        }
        chances = throwDice(rolling, kept, throwCount + 1);
      }
      if (mean(chances) > mean(best) + 1e-12) best = chances;
    }
    return best;
  }

  Player player_;
  std::map<std::tuple<Dice, Dice, int>, Chances> known_;
};

/// What the computer has set aside it would set aside again, so each throw's decision starts from home.
std::vector<Places> computersChoice(const Faces& faces, int throwCount) {
  Places places = allHome;
  computer::IconsTaken taken{};
  while (true) {
    std::array<bool, game::diceCount> atHome{};
    for (std::size_t die = 0; die < faces.size(); ++die) atHome[die] = places[die] == home;
    const auto choice = computer::decide(faces, atHome, taken, throwCount);
    if (!choice) return {places};
    places[choice->die] = static_cast<std::size_t>(choice->icon);
    taken[places[choice->die]] = true;
  }
}

/// Every way to lay the dice that the icons accept.
std::vector<Places> anyLayout(const Faces& faces) {
  std::vector<Places> layouts{allHome};
  for (std::size_t die = 0; die < faces.size(); ++die) {
    for (const Places& before : std::exchange(layouts, {})) {
      for (std::size_t place = 0; place <= elsewhere; ++place) {
        const bool occupied = diceAt(before, place) > 0;
        if (place < home && !accepts(static_cast<IconKind>(place), std::to_string(faces[die]), occupied))
          continue;
        layouts.emplace_back(before)[die] = place;
      }
    }
  }
  return layouts;
}

bool oneDieAnIcon(const Places& places) {
  return diceAt(places, 0) <= 1 && diceAt(places, 1) <= 1 && diceAt(places, 2) <= 1;
}

bool crewAndCargoLast(const Places& places) {
  const bool manned = diceAt(places, 0) > 0 && diceAt(places, 1) > 0 && diceAt(places, 2) > 0;
  return diceAt(places, elsewhere) == 0 && (manned || diceAt(places, crew) + diceAt(places, cargo) == 0);
}

Player whoever(const std::function<bool(const Places&)>& allowed) {
  return [allowed](const Faces& faces, int) {
    std::vector<Places> layouts = anyLayout(faces);
    std::erase_if(layouts, [&allowed](const Places& places) { return !allowed(places); });
    return layouts;
  };
}

/// Of each total after a whole game.
std::vector<double> totals(const Chances& turn) {
  std::vector<double> chances{1};
  for (int round = 0; round < game::roundsPerGame; ++round) {
    std::vector<double> longer(chances.size() + turn.size() - 1);
    for (std::size_t total = 0; total < chances.size(); ++total) {
      for (std::size_t score = 0; score < turn.size(); ++score) {
        longer[total + score] += chances[total] * turn[score];
      }
    }
    chances = std::move(longer);
  }
  return chances;
}

void print(const char* player, const Chances& turn, const Chances& computersTurn) {
  const std::vector<double> own = totals(turn);
  const std::vector<double> computers = totals(computersTurn);
  double won = 0;
  double drawn = 0;
  for (std::size_t total = 0; total < own.size(); ++total) {
    for (std::size_t less = 0; less < total; ++less) won += own[total] * computers[less];
    drawn += own[total] * computers[total];
  }
  std::printf("%.7f points a turn; against the computer %.3f %% won, %.3f %% drawn, %.3f %% lost: %s\n",
              mean(turn), 100 * won, 100 * drawn, 100 * (1 - won - drawn), player);
}

}  // namespace

int main() {
  const Chances computers = Turn(computersChoice).outcome();
  const auto best = [&computers](const char* player, const std::function<bool(const Places&)>& allowed) {
    print(player, Turn(whoever(allowed)).outcome(), computers);
  };
  print("the computer", computers, computers);
  best("the best with one die an icon, and a 6, a 5 and a 4 in place before any is kept for crew and cargo",
       [](const Places& places) { return oneDieAnIcon(places) && crewAndCargoLast(places); });
  best("the best with one die an icon, kept in any order", oneDieAnIcon);
  best("the best of all, with dice stacked on ship, captain and mate", [](const Places&) { return true; });
}
