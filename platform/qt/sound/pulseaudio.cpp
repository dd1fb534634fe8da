// Sound by PulseAudio, or what speaks its language.

#include <memory>
#include <pulse/simple.h>
#include <sndfile.h>
#include <vector>

#include "platform/qt/play_wave.h"

using namespace platform::qt;
using namespace std::chrono_literals;

extern "C" PlayWave playWave;

bool playWave(const std::filesystem::path& file, std::chrono::steady_clock::time_point latest,
              const Newer& newer) {
  SF_INFO about{};
  const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> wave(sf_open(file.c_str(), SFM_READ, &about), sf_close);
  const int kind = about.format & SF_FORMAT_TYPEMASK;
  const pa_sample_spec samples{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(about.samplerate),
                               static_cast<std::uint8_t>(about.channels)};
  if (!wave || (kind != SF_FORMAT_WAV && kind != SF_FORMAT_WAVEX) || about.frames < 1 ||
      about.channels > int{PA_CHANNELS_MAX} || !pa_sample_spec_valid(&samples)) {
    return false;
  }
  pa_channel_map speakers;
  pa_channel_map_init_extend(&speakers, samples.channels, PA_CHANNEL_MAP_WAVEEX);

  // The server is handed a hundredth of a second at a time, to begin with the first, and never has more than
  // a tenth: what sounds after it was cut off.
  const sf_count_t frames = about.samplerate / 100 + 1;
  std::vector<float> block(static_cast<std::size_t>(frames * about.channels));
  const auto bytes = static_cast<std::uint32_t>(block.size() * sizeof(float));
  const pa_buffer_attr buffer{
      .maxlength = ~0U, .tlength = 10 * bytes, .prebuf = bytes, .minreq = bytes, .fragsize = ~0U};
  const std::unique_ptr<pa_simple, void (*)(pa_simple*)> server(
      pa_simple_new(nullptr, "Tolvane", PA_STREAM_PLAYBACK, nullptr, "Tolvane", &samples, &speakers, &buffer,
                    nullptr),
      pa_simple_free);
  if (!server || std::chrono::steady_clock::now() > latest) return true;
  while (const sf_count_t got = sf_readf_float(wave.get(), block.data(), frames)) {
    const auto size = static_cast<std::size_t>(got * about.channels) * sizeof(float);
    if (newer(0us) || pa_simple_write(server.get(), block.data(), size, nullptr) < 0) return true;
  }
  // Ending now would lose what is still on its way: most of a click.
  const std::chrono::microseconds onItsWay(pa_simple_get_latency(server.get(), nullptr));
  if (!newer(onItsWay)) pa_simple_drain(server.get(), nullptr);
  return true;
}
