// Sounds from files, one at a time.
#pragma once

#include <QObject>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

namespace platform::qt {

class SoundOutput;

/// Plays on a thread of its own, which starts with the first sound: reading a file and looking for the sound
/// server can take long, and neither the start of the program nor a handler nor its end waits for it. Needs a
/// QApplication.
class SoundPlayer final : public QObject {
  Q_OBJECT

 public:
  SoundPlayer();
  ~SoundPlayer() override;

  /// Starts the sound file and returns at once; a sound still playing is cut off.
  void play(std::string_view path);

 signals:
  /// The file cannot be played.
  void failed();

 private:
  void work(const QString& module);
  void letWake(SoundOutput* output);

  std::thread thread_;
  std::mutex mutex_;                   // Guards what follows.
  std::optional<std::string> newest_;  // The sound that is asked for.
  SoundOutput* output_ = nullptr;      // The thread's, while it can be woken.
  bool ending_ = false;
};

}  // namespace platform::qt
