#include "platform/qt/sound_player.h"

#include <QApplication>
#include <QAudioDevice>
#include <QAudioSink>
#include <QBuffer>
#include <QMediaDevices>
#include <map>
#include <memory>

#include "platform/files.h"
#include "platform/qt/wave_file.h"

namespace platform::qt {

/// Lives on the sound thread.
///
/// Qt's player of short sounds stops the device as soon as it has handed over the last sample, which silences
/// what is still on its way: of a click that is all there is. So each sound is given a stretch of silence to
/// lose.
class SoundPlayer::Worker final : public QObject {
 public:
  explicit Worker(SoundPlayer& player) : player_(player) {}

  void play(const QString& path) {
    sink_.reset();  // Silences what it was playing.
    const std::optional<WaveFile>& sound = soundFrom(path);
    if (!sound) {
      emit player_.failed();
      return;
    }
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) return;
    samples_.close();
    samples_.setData(sound->samples);
    samples_.open(QIODevice::ReadOnly);
    sink_ = std::make_unique<QAudioSink>(device, sound->format);
    connect(sink_.get(), &QAudioSink::stateChanged, this, [sink = sink_.get()](QAudio::State state) {
      if (state == QAudio::IdleState) sink->stop();
    });
    sink_->start(&samples_);
  }

 private:
  const std::optional<WaveFile>& soundFrom(const QString& path) {
    const auto known = sounds_.find(path);
    if (known != sounds_.end()) return known->second;
    std::optional<WaveFile> sound = readWaveFile(path);
    if (sound) {
      constexpr int silence = 500000;  // Microseconds.
      const char zero = sound->format.sampleFormat() == QAudioFormat::UInt8 ? '\x80' : '\0';
      sound->samples.append(sound->format.bytesForDuration(silence), zero);
    }
    return sounds_.emplace(path, std::move(sound)).first->second;
  }

  SoundPlayer& player_;
  std::map<QString, std::optional<WaveFile>> sounds_;
  QBuffer samples_{this};
  std::unique_ptr<QAudioSink> sink_;
};

SoundPlayer::SoundPlayer() {
  connect(this, &SoundPlayer::failed, this, [] { QApplication::beep(); });
}

SoundPlayer::~SoundPlayer() {
  thread_.quit();
  thread_.wait();
}

void SoundPlayer::play(std::string_view path) {
  if (!thread_.isRunning()) start();
  emit requested(QString::fromStdString(fileNamed(path).string()));
}

void SoundPlayer::start() {
  auto* worker = new Worker(*this);
  worker->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, worker, &QObject::deleteLater);
  connect(this, &SoundPlayer::requested, worker, &Worker::play);
  thread_.start();
}

}  // namespace platform::qt
