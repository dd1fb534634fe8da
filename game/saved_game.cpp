#include "game/saved_game.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>

#include "platform/files.h"

namespace game {

namespace {

constexpr std::string_view fileName = "lastgame.inf";

// More than ten lines with the widest numbers and generous blanks can need.
constexpr std::size_t longestFile = 4096;

// The largest number that is read back; a total may have grown beyond it.
constexpr int mostReadBack = std::numeric_limits<std::int16_t>::max();

// The first nine values, in the order of the lines; of a game or of a game that is only read.
template <typename Game>
auto wholeNumbers(Game& game) {
  return std::array{&game.options.playerCount,      &game.state.currentSeat,  &game.state.roundNumber,
                    &game.options.computerOpponent, &game.state.seatScore[0], &game.state.seatScore[1],
                    &game.state.seatScore[2],       &game.state.seatScore[3], &game.options.soundOn};
}

std::optional<int> wholeNumber(std::string_view line) {
  constexpr std::string_view blanks = " \t\r";
  line.remove_prefix(std::min(line.find_first_not_of(blanks), line.size()));
  std::int16_t number = 0;
  const auto [end, failure] = std::from_chars(line.data(), line.data() + line.size(), number);
  line.remove_prefix(static_cast<std::size_t>(end - line.data()));
  const bool good = failure == std::errc() && line.find_first_not_of(blanks) == std::string_view::npos;
  return good ? std::optional<int>(number) : std::nullopt;
}

bool within(int value, int least, int most) {
  return least <= value && value <= most;
}

}  // namespace

std::string savedGameText(const SavedGame& game) {
  std::string text;
  for (const int* value : wholeNumbers(game)) text += std::to_string(std::min(*value, mostReadBack)) + "\r\n";
  return text + std::to_string(game.options.hideDesktop) + "\r\n";
}

bool readSavedGame(std::string_view text, SavedGame& game) {
  std::istringstream lines{std::string(text)};
  std::string line;
  for (int* value : wholeNumbers(game)) {
    const auto number = std::getline(lines, line) ? wholeNumber(line) : std::nullopt;
    if (!number) return false;
    *value = *number;
  }
  if (!std::getline(lines, line)) return false;
  game.options.hideDesktop = wholeNumber(line) == 1 ? 1 : 0;
  return true;
}

bool isPlayable(const SavedGame& game) {
  const int seatsInPlay = game.options.computerOpponent != 0 ? 2 : game.options.playerCount;
  return within(game.options.playerCount, 2, 4) && within(game.state.currentSeat, 0, seatsInPlay - 1) &&
         within(game.state.roundNumber, 1, roundsPerGame);
}

void save(const SavedGame& game) {
  platform::writeFile(fileName, savedGameText(game));
}

bool restore(SavedGame& game) {
  const auto text = platform::readFile(fileName, longestFile);
  return text && readSavedGame(*text, game) && isPlayable(game);
}

}  // namespace game
