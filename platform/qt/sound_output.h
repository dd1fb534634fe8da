// What the program sees of the sound module: the libraries that read sounds and speak to the sound server are
// linked to the module alone, which is loaded with the first sound. So the program's start does not pay for
// them, and where they are missing the game is merely silent.
#pragma once

#include <string>

namespace platform::qt {

/// Plays one sound at a time. All calls but `wake` come from one thread, and none of them waits for the sound
/// server: one that hangs, or is not there, is silence.
class SoundOutput {
 public:
  SoundOutput() = default;
  virtual ~SoundOutput() = default;
  SoundOutput(const SoundOutput&) = delete;
  SoundOutput& operator=(const SoundOutput&) = delete;

  /// Ends the sound that is playing and starts the one in a WAV file's contents; false when they hold none
  /// that can be played. The sound server is looked for anew where none is connected; a sound that it does
  /// not take at once is dropped.
  virtual bool play(std::string contents) = 0;

  /// Sleeps until the sound server says something or `wake` is called, and then keeps the sound going. False
  /// when that cannot be done any more.
  virtual bool attend() = 0;

  /// Ends the running `attend`, or else the next one, early; for other threads.
  virtual void wake() = 0;
};

/// The one function of the module, by this name: a new output, the caller's to delete; null when there is
/// none.
using MakeSoundOutput = SoundOutput*();
inline constexpr const char* makeSoundOutput = "makeSoundOutput";

/// The module's file, beside the program.
inline constexpr const char* soundModule = "tolvane-sound.so";

}  // namespace platform::qt
