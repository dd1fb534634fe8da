#include "platform/qt/sound_player.h"

#include <QApplication>
#include <QSoundEffect>
#include <map>

#include "platform/files.h"

namespace platform::qt {

/// Lives on the sound thread.
class SoundPlayer::Worker final : public QObject {
 public:
  explicit Worker(SoundPlayer& player) : player_(player) {}

  void play(const QString& file) {
    if (playing_) playing_->stop();
    playing_ = &effect(file);
    playing_->play();
    if (playing_->status() == QSoundEffect::Error) emit player_.failed();
  }

 private:
  QSoundEffect& effect(const QString& file) {
    std::unique_ptr<QSoundEffect>& effect = effects_[file];
    if (!effect) {
      effect = std::make_unique<QSoundEffect>();
      connect(effect.get(), &QSoundEffect::statusChanged, this, [this, made = effect.get()] {
        const bool newest = made == playing_;
        if (newest && made->status() == QSoundEffect::Error) emit player_.failed();
      });
      effect->setSource(QUrl::fromLocalFile(file));
    }
    return *effect;
  }

  SoundPlayer& player_;
  std::map<QString, std::unique_ptr<QSoundEffect>> effects_;
  QSoundEffect* playing_ = nullptr;
};

SoundPlayer::SoundPlayer() {
  auto* worker = new Worker(*this);
  worker->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, worker, &QObject::deleteLater);
  connect(this, &SoundPlayer::requested, worker, &Worker::play);
  connect(this, &SoundPlayer::failed, this, [] { QApplication::beep(); });
}

SoundPlayer::~SoundPlayer() {
  thread_.quit();
  thread_.wait();
}

void SoundPlayer::play(std::string_view path) {
  if (!thread_.isRunning()) thread_.start();
  emit requested(QString::fromStdString(fileNamed(path).string()));
}

}  // namespace platform::qt
