// The program's sounds.
#pragma once

#include <string_view>

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

namespace shell {

/// Plays a sound file and returns at once; it cuts off the sound still playing. Whether a sound is wanted is
/// the caller's to ask: every call is made only when `soundOn` is 1.
void playwav(platform::Desktop& desktop, std::string_view path);

}  // namespace shell
