// Sound by Windows' own player.

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <windows.h>
// The rest of it:
#include <mmsystem.h>

#include "platform/qt/play_wave.h"

using namespace platform::qt;
using namespace std::chrono_literals;

extern "C" PlayWave playWave;

namespace {

/// How long the sound of a WAV file is. Nothing where it cannot be played: the player does not say so, and is
/// not told where the file ends, so each length within it is looked at first.
std::optional<std::chrono::milliseconds> lengthOf(std::string& file) {
  MMIOINFO memory{};
  memory.fccIOProc = FOURCC_MEM;
  memory.pchBuffer = file.data();
  memory.cchBuffer = static_cast<LONG>(file.size());
  const std::unique_ptr<HMMIO__, MMRESULT (*)(HMMIO)> wave(mmioOpenW(nullptr, &memory, MMIO_READ),
                                                           [](HMMIO open) { return mmioClose(open, 0); });
  MMCKINFO whole{};
  whole.fccType = mmioFOURCC('W', 'A', 'V', 'E');
  if (!wave || mmioDescend(wave.get(), &whole, nullptr, MMIO_FINDRIFF) != 0) return std::nullopt;

  struct {
    WAVEFORMATEX format;
    std::array<char, 0x10000> more;  // A damaged file may state that so much of it follows.
  } head{};
  MMCKINFO part{};
  part.ckid = mmioFOURCC('f', 'm', 't', ' ');
  if (mmioDescend(wave.get(), &part, &whole, MMIO_FINDCHUNK) != 0) return std::nullopt;
  const auto size = static_cast<LONG>(std::min<std::size_t>(part.cksize, sizeof head));
  const LONG got = mmioRead(wave.get(), reinterpret_cast<HPSTR>(&head), size);
  if (got < LONG{sizeof(PCMWAVEFORMAT)} || head.format.nAvgBytesPerSec == 0) return std::nullopt;
  mmioAscend(wave.get(), &part, 0);
  part.ckid = mmioFOURCC('d', 'a', 't', 'a');
  if (mmioDescend(wave.get(), &part, &whole, MMIO_FINDCHUNK) != 0 || part.cksize == 0) return std::nullopt;
  if (part.dwDataOffset + std::uintmax_t{part.cksize} > file.size()) return std::nullopt;
  if (waveOutOpen(nullptr, WAVE_MAPPER, &head.format, 0, 0, WAVE_FORMAT_QUERY) == WAVERR_BADFORMAT)
    return std::nullopt;
  return std::chrono::milliseconds(part.cksize * 1000ULL / head.format.nAvgBytesPerSec);
}

}  // namespace

bool playWave(const std::filesystem::path& file, std::chrono::steady_clock::time_point /*latest*/,
              const Newer& newer) {
  constexpr std::uintmax_t most = 64 << 20;
  std::error_code failure;
  std::string contents(std::min(std::filesystem::file_size(file, failure), most), '\0');
  std::ifstream(file, std::ios::binary).read(contents.data(), std::ssize(contents));
  const auto length = lengthOf(contents);
  if (!length) return false;
  PlaySoundW(reinterpret_cast<LPCWSTR>(contents.data()), nullptr, SND_MEMORY | SND_ASYNC | SND_NODEFAULT);
  newer(*length + 1s);  // It takes a while to begin.
  PlaySoundW(nullptr, nullptr, 0);
  return true;
}
