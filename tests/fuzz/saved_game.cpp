// Whatever stands in the file, reading it ends well, and a game that is taken for playable can be played.
#include "game/saved_game.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  game::SavedGame read{};
  game::SavedGame again{};
  if (!game::readSavedGame({reinterpret_cast<const char*>(data), size}, read)) return 0;
  const std::string text = game::savedGameText(read);
  if (!game::readSavedGame(text, again) || game::savedGameText(again) != text) std::abort();
  const int seat = read.state.currentSeat;
  if (game::isPlayable(read) && (seat < 0 || seat >= read.options.playerCount || seat > 3)) std::abort();
  return 0;
}
