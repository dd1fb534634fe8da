// Sounds from files, one at a time.
#pragma once

#include <QString>
#include <functional>
#include <future>
#include <memory>
#include <string_view>

namespace platform::qt {

/// Plays on a thread of its own, which starts with the first sound: reading a file and looking for the sound
/// server can take long, and neither the start of the program nor a handler nor its end waits for it. Needs a
/// QApplication.
class SoundPlayer {
 public:
  /// `alert` is called in the application's thread when a file cannot be played.
  explicit SoundPlayer(std::function<void()> alert);
  ~SoundPlayer();

  /// Starts the sound file and returns at once; a sound still playing is cut off.
  void play(std::string_view path);

 private:
  struct Shared;
  static void work(const std::shared_ptr<Shared>& shared, const QString& module);

  std::shared_ptr<Shared> shared_;  // With the thread, which may outlive the player.
  std::future<void> ended_;         // The thread's end; none before the first sound.
};

}  // namespace platform::qt
