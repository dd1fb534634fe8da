// The program's sounds.
#pragma once

#include <string_view>

#include "game/options.h"
#include "platform/desktop.h"

/// The sound files, by what is heard.
namespace sounds {

inline constexpr std::string_view click = R"(wav\click.wav)";
inline constexpr std::string_view click1 = R"(wav\click1.wav)";
inline constexpr std::string_view key = R"(wav\key.wav)";
inline constexpr std::string_view cupdice = R"(wav\cupdice.wav)";
inline constexpr std::string_view shipbell = R"(wav\shipbell.wav)";
inline constexpr std::string_view fourBells = R"(wav\4bells.wav)";
inline constexpr std::string_view klaxon = R"(wav\klaxon.wav)";
inline constexpr std::string_view splash = R"(wav\wateresplash.wav)";
inline constexpr std::string_view divingBoard = R"(wav\divboard.wav)";
inline constexpr std::string_view dive = R"(wav\dive1.wav)";
inline constexpr std::string_view aooga = R"(wav\aooga.wav)";

}  // namespace sounds

namespace game {

/// Plays one of these if `soundOn` is 1; it cuts off the sound still playing.
inline void play(platform::Desktop& desktop, const GameOptions& options, std::string_view sound) {
  if (options.soundOn == 1) desktop.playwav(sound);
}

}  // namespace game
