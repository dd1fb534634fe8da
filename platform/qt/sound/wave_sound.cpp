#include "platform/qt/sound/wave_sound.h"

#include <algorithm>
#include <cstdio>
#include <utility>

namespace platform::qt {

namespace {

// What a sound server takes; a damaged file may state anything.
constexpr int mostChannels = 32;
constexpr int lowestRate = 1000;
constexpr int highestRate = 384000;

bool playable(const SF_INFO& about) {
  const int kind = about.format & SF_FORMAT_TYPEMASK;
  return (kind == SF_FORMAT_WAV || kind == SF_FORMAT_WAVEX) && about.frames > 0 && about.channels >= 1 &&
         about.channels <= mostChannels && about.samplerate >= lowestRate && about.samplerate <= highestRate;
}

}  // namespace

std::unique_ptr<WaveSound> WaveSound::from(std::string contents) {
  // Under the name of a sound nothing but a WAV file is read, though the library knows many more.
  if (!contents.starts_with("RIFF")) return nullptr;
  // Who streams a file may state that it holds 0 bytes of samples. The library takes that for "unknown" only
  // where the file as a whole, whose size it needs for nothing else, states 8.
  contents.replace(4, 4, {8, 0, 0, 0});
  std::unique_ptr<WaveSound> sound(new WaveSound(std::move(contents)));
  SF_VIRTUAL_IO access{
      .get_filelen = [](void* self) { return std::ssize(static_cast<WaveSound*>(self)->contents_); },
      .seek = [](sf_count_t offset, int from,
                 void* self) { return static_cast<WaveSound*>(self)->seek(offset, from); },
      .read = [](void* bytes, sf_count_t count,
                 void* self) { return static_cast<WaveSound*>(self)->readBytes(bytes, count); },
      .write = nullptr,
      .tell = [](void* self) { return static_cast<WaveSound*>(self)->place_; }};
  sound->file_.reset(sf_open_virtual(&access, SFM_READ, &sound->about_, sound.get()));
  return sound->file_ && playable(sound->about_) ? std::move(sound) : nullptr;
}

std::size_t WaveSound::read(std::span<float> samples) {
  const auto frames = std::ssize(samples) / channels();
  const sf_count_t got = sf_readf_float(file_.get(), samples.data(), frames);
  return static_cast<std::size_t>(std::max<sf_count_t>(got, 0) * channels());
}

sf_count_t WaveSound::seek(sf_count_t offset, int from) {
  const sf_count_t base = from == SEEK_SET ? 0 : from == SEEK_CUR ? place_ : std::ssize(contents_);
  place_ = base + std::clamp<sf_count_t>(offset, -base, std::ssize(contents_) - base);
  return place_;
}

sf_count_t WaveSound::readBytes(void* bytes, sf_count_t count) {
  const sf_count_t got = std::clamp<sf_count_t>(count, 0, std::ssize(contents_) - place_);
  std::copy_n(contents_.data() + place_, got, static_cast<char*>(bytes));
  place_ += got;
  return got;
}

}  // namespace platform::qt
