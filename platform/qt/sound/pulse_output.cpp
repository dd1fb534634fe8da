// The sound module: a connection to the sound server, PulseAudio or what speaks its language.

#include <atomic>
#include <chrono>
#include <memory>
#include <pulse/pulseaudio.h>
#include <utility>

#include "platform/qt/sound/wave_sound.h"
#include "platform/qt/sound_output.h"

namespace platform::qt {

namespace {

using Clock = std::chrono::steady_clock;

// Later than this after it was asked for, a sound is no longer one: whoever clicked has gone on.
constexpr std::chrono::seconds patience{1};

template <auto release>
struct Release {
  template <typename Thing>
  void operator()(Thing* thing) const {
    release(thing);
  }
};

void leave(pa_context* context) {
  pa_context_disconnect(context);
  pa_context_unref(context);
}

void end(pa_stream* stream) {
  pa_stream_disconnect(stream);
  pa_stream_unref(stream);
}

using Loop = std::unique_ptr<pa_mainloop, Release<pa_mainloop_free>>;
using Context = std::unique_ptr<pa_context, Release<leave>>;
using Stream = std::unique_ptr<pa_stream, Release<end>>;
using Operation = std::unique_ptr<pa_operation, Release<pa_operation_unref>>;

/// Has no callbacks: whatever the server says ends the loop's sleep, and then we look at how things stand.
class PulseOutput final : public SoundOutput {
 public:
  bool good() const { return loop_ != nullptr; }

  bool play(std::string contents) override {
    endCurrent();
    next_ = WaveSound::from(std::move(contents));
    if (!next_) return false;
    asked_ = Clock::now();
    if (!context_) connect();
    goOn();
    return true;
  }

  bool attend() override {
    constexpr int forever = -1;
    if (pa_mainloop_prepare(loop_.get(), forever) < 0) return false;
    if (woken_.exchange(false))
      pa_mainloop_wakeup(loop_.get());  // The loop forgets what came before `prepare`.
    if (pa_mainloop_poll(loop_.get()) < 0 || pa_mainloop_dispatch(loop_.get()) < 0) return false;
    goOn();
    return true;
  }

  void wake() override {
    woken_ = true;
    pa_mainloop_wakeup(loop_.get());
  }

 private:
  bool tooLate() const { return Clock::now() - asked_ > patience; }

  // Does not start a server where none runs: that would wait for it.
  void connect() {
    context_.reset(pa_context_new(pa_mainloop_get_api(loop_.get()), "Tolvane"));
    if (context_) pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr);
  }

  void endCurrent() {
    current_.reset();
    drain_.reset();
    // The server ends no stream that it has not made yet; that one goes as soon as it is there.
    if (stream_ && pa_stream_get_state(stream_.get()) != PA_STREAM_CREATING) stream_.reset();
  }

  void goOn() {
    if (context_ && !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get()))) {
      drain_.reset();
      stream_.reset();
      context_.reset();
    }
    if (!context_) {
      current_.reset();
      next_.reset();
      return;
    }
    if (stream_) attendStream();
    if (!next_ || stream_ || pa_context_get_state(context_.get()) != PA_CONTEXT_READY) return;
    current_ = std::move(next_);
    begun_ = false;
    if (!tooLate()) makeStream();
  }

  void makeStream() {
    const pa_sample_spec samples{PA_SAMPLE_FLOAT32NE, static_cast<std::uint32_t>(current_->rate()),
                                 static_cast<std::uint8_t>(current_->channels())};
    pa_channel_map speakers;
    pa_channel_map_init_extend(&speakers, samples.channels, PA_CHANNEL_MAP_WAVEEX);
    stream_.reset(pa_stream_new(context_.get(), "Tolvane", &samples, &speakers));
    if (stream_) {
      pa_stream_connect_playback(stream_.get(), nullptr, nullptr, PA_STREAM_NOFLAGS, nullptr, nullptr);
    }
  }

  void attendStream() {
    const pa_stream_state_t state = pa_stream_get_state(stream_.get());
    if (state == PA_STREAM_CREATING) return;
    if (state == PA_STREAM_READY && current_ && (begun_ || !tooLate())) return fill();
    const bool draining = drain_ && pa_operation_get_state(drain_.get()) == PA_OPERATION_RUNNING;
    if (state != PA_STREAM_READY || !draining) endCurrent();
  }

  // Hands over as much of the sound as the server has room for; after the last sample the server is to play
  // what it has before the stream ends, or most of a click would be lost.
  void fill() {
    begun_ = true;
    const std::size_t frame = pa_frame_size(pa_stream_get_sample_spec(stream_.get()));
    std::size_t room = pa_stream_writable_size(stream_.get());
    while (room != static_cast<std::size_t>(-1) && room >= frame) {
      void* place = nullptr;
      std::size_t bytes = room;
      if (pa_stream_begin_write(stream_.get(), &place, &bytes) < 0) return endCurrent();
      const std::size_t got =
          current_->read({static_cast<float*>(place), bytes / sizeof(float)}) * sizeof(float);
      if (got == 0) {
        pa_stream_cancel_write(stream_.get());
        current_.reset();
        drain_.reset(pa_stream_drain(stream_.get(), nullptr, nullptr));
        return;
      }
      pa_stream_write(stream_.get(), place, got, nullptr, 0, PA_SEEK_RELATIVE);
      room -= got;
    }
  }

  Loop loop_{pa_mainloop_new()};
  std::atomic<bool> woken_ = false;
  Context context_;
  Stream stream_;
  Operation drain_;
  std::unique_ptr<WaveSound> current_;  // What the stream is for; null once all of it is handed over.
  std::unique_ptr<WaveSound> next_;     // Waits for the server, or for the end of an earlier stream.
  Clock::time_point asked_;             // When the newest sound was asked for.
  bool begun_ = false;                  // Some of the current sound has been handed over.
};

}  // namespace

}  // namespace platform::qt

extern "C" __attribute__((visibility("default"))) platform::qt::SoundOutput* makeSoundOutput() {
  auto output = std::make_unique<platform::qt::PulseOutput>();
  return output->good() ? output.release() : nullptr;
}
