#include "game/saved_game.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/files.h"

namespace game {

namespace {

constexpr std::string_view fileName = "lastgame.inf";

// More than ten lines with the widest numbers and generous blanks can need.
constexpr std::size_t longestFile = 4096;

// A total may have grown beyond it.
constexpr int mostReadBack = std::numeric_limits<std::int16_t>::max();

// The first nine values, in the order of the lines; of a game or of a game that is only read.
template <typename Game>
auto wholeNumbers(Game& game) {
  return std::array{&game.options.playerCount,      &game.state.currentSeat,  &game.state.roundNumber,
                    &game.options.computerOpponent, &game.state.seatScore[0], &game.state.seatScore[1],
                    &game.state.seatScore[2],       &game.state.seatScore[3], &game.options.soundOn};
}

std::string_view withoutBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Takes the next line off the front of `text`; nothing when the text is used up.
std::optional<std::string_view> nextLine(std::string_view& text) {
  if (text.empty()) return std::nullopt;
  const auto end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return withoutBlanks(line);
}

std::optional<int> wholeNumber(std::string_view line) {
  std::int16_t number = 0;
  const auto [end, failure] = std::from_chars(line.data(), line.data() + line.size(), number);
  if (failure != std::errc() || end != line.data() + line.size()) return std::nullopt;
  return number;
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
  for (int* value : wholeNumbers(game)) {
    const auto line = nextLine(text);
    const auto number = line ? wholeNumber(*line) : std::nullopt;
    if (!number) return false;
    *value = *number;
  }
  const auto last = nextLine(text);
  if (!last) return false;
  game.options.hideDesktop = wholeNumber(*last) == 1 ? 1 : 0;
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
