// Sound files as the game has them.
#pragma once

#include <cstddef>
#include <memory>
#include <sndfile.h>
#include <span>
#include <string>

namespace platform::qt {

/// The samples of a WAV file, of whatever kind libsndfile knows, read as they are needed.
class WaveSound {
 public:
  /// Null when these contents of a file are not a WAV file, or not one that can be played.
  static std::unique_ptr<WaveSound> from(std::string contents);

  int rate() const { return about_.samplerate; }  // Frames a second.
  int channels() const { return about_.channels; }

  /// Fills `samples` with the next whole frames, from -1 to 1; how many samples that were, 0 at the end.
  std::size_t read(std::span<float> samples);

 private:
  explicit WaveSound(std::string contents) : contents_(std::move(contents)) {}

  sf_count_t seek(sf_count_t offset, int from);
  sf_count_t readBytes(void* bytes, sf_count_t count);

  std::string contents_;
  sf_count_t place_ = 0;  // In the contents.
  SF_INFO about_{};
  std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file_{nullptr, sf_close};
};

}  // namespace platform::qt
