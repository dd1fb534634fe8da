// What the sound player needs of this system.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace platform::qt {

/// Waits for so long; true as soon as the sound that plays is to end, since there is a newer one.
using Newer = std::function<bool(std::chrono::microseconds)>;

/// Plays a WAV file and returns when all of it has been heard, or when `newer` says so. A sound that cannot
/// begin by `latest` is dropped, and without a sound server there is silence. False when this is no file that
/// can be played. Takes as long as the server does: one that hangs may keep it for ever.
using PlayWave = bool(const std::filesystem::path& file, std::chrono::steady_clock::time_point latest,
                      const Newer& newer);

}  // namespace platform::qt
