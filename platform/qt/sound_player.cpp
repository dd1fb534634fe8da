#include "platform/qt/sound_player.h"

#include <QApplication>
#include <QLibrary>
#include <memory>
#include <utility>

#include "platform/files.h"
#include "platform/qt/sound_output.h"

namespace platform::qt {

SoundPlayer::SoundPlayer() {
  connect(this, &SoundPlayer::failed, this, [] { QApplication::beep(); });
}

SoundPlayer::~SoundPlayer() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    if (output_) output_->wake();
  }
  if (thread_.joinable()) thread_.join();
}

void SoundPlayer::play(std::string_view path) {
  {
    const std::lock_guard lock(mutex_);
    newest_ = path;
    if (output_) output_->wake();
  }
  if (!thread_.joinable()) {
    thread_ = std::thread(&SoundPlayer::work, this, QApplication::applicationDirPath() + '/' + soundModule);
  }
}

void SoundPlayer::work(const QString& module) {
  auto* make = reinterpret_cast<MakeSoundOutput*>(QLibrary::resolve(module, makeSoundOutput));
  const std::unique_ptr<SoundOutput> output(make ? make() : nullptr);
  if (!output) return;  // Silence.
  letWake(output.get());
  bool going = true;
  while (going) {
    std::optional<std::string> sound;
    {
      const std::lock_guard lock(mutex_);
      if (ending_) break;
      sound = std::exchange(newest_, std::nullopt);
    }
    constexpr std::size_t largestFile = 64 << 20;
    if (sound && !output->play(readFile(*sound, largestFile).value_or(""))) emit failed();
    going = output->attend();
  }
  letWake(nullptr);
}

void SoundPlayer::letWake(SoundOutput* output) {
  const std::lock_guard lock(mutex_);
  output_ = output;
}

}  // namespace platform::qt
