// Sounds from files, one at a time.
#pragma once

#include <QObject>
#include <QThread>
#include <string_view>

namespace platform::qt {

/// Plays on a thread of its own, which starts with the first sound: opening the sound device can take long,
/// and neither the start of the program nor a handler waits for it.
class SoundPlayer final : public QObject {
  Q_OBJECT

 public:
  SoundPlayer();
  ~SoundPlayer() override;

  /// Starts the sound file and returns at once; a sound still playing is cut off.
  void play(std::string_view path);

 signals:
  void requested(const QString& name);
  void failed();

 private:
  class Worker;

  void start();

  QThread thread_;
};

}  // namespace platform::qt
