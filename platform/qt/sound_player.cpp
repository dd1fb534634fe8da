#include "platform/qt/sound_player.h"

#include <QApplication>
#include <QAudioDevice>
#include <QAudioSink>
#include <QBuffer>
#include <QMediaDevices>
#include <cstdlib>
#include <memory>

#include "platform/files.h"
#include "platform/qt/wave_file.h"

namespace platform::qt {

/// Lives on the sound thread.
///
/// Qt's player of short sounds stops the device as soon as it has handed over the last sample, which silences
/// what is still on its way: of a click, most of it. So each sound is given a stretch of silence to lose.
class SoundPlayer::Worker final : public QObject {
 public:
  explicit Worker(SoundPlayer& player) : player_(player) {}

  void play(const QString& name) {
    sink_.reset();  // Silences what it was playing.
    std::optional<WaveFile> sound =
        readWaveFile(QString::fromStdString(fileNamed(name.toStdString()).string()));
    if (!sound) {
      emit player_.failed();
      return;
    }
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull()) return;
    constexpr int silence = 500000;  // Microseconds.
    const char zero = sound->format.sampleFormat() == QAudioFormat::UInt8 ? '\x80' : '\0';
    sound->samples.append(sound->format.bytesForDuration(silence), zero);
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
  SoundPlayer& player_;
  QBuffer samples_{this};
  std::unique_ptr<QAudioSink> sink_;
};

SoundPlayer::SoundPlayer() {
  connect(this, &SoundPlayer::failed, this, [] { QApplication::beep(); });
}

SoundPlayer::~SoundPlayer() {
  thread_.quit();
  // A sound device that does not answer must not keep the program from ending; there is nothing left to save.
  if (!thread_.wait(2000)) std::_Exit(EXIT_FAILURE);
}

void SoundPlayer::play(std::string_view path) {
  if (!thread_.isRunning()) start();
  emit requested(QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size())));
}

void SoundPlayer::start() {
  auto* worker = new Worker(*this);
  worker->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, worker, &QObject::deleteLater);
  connect(this, &SoundPlayer::requested, worker, &Worker::play);
  thread_.start();
}

}  // namespace platform::qt
