#include "platform/qt/sound_player.h"

#include <QApplication>
#include <QLibrary>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

#include "platform/files.h"
#include "platform/qt/play_wave.h"

using namespace std::chrono_literals;
using std::chrono::steady_clock;

namespace platform::qt {

struct SoundPlayer::Shared {
  bool newer() const { return ending || newest; }

  std::function<void()> alert;
  std::mutex mutex;  // Guards what follows.
  std::condition_variable changed;
  std::optional<std::string> newest;  // The sound that is asked for.
  steady_clock::time_point asked;     // When that was.
  bool ending = false;
};

SoundPlayer::SoundPlayer(std::function<void()> alert) : shared_(std::make_shared<Shared>()) {
  shared_->alert = std::move(alert);
}

SoundPlayer::~SoundPlayer() {
  if (!ended_.valid()) return;
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->ending = true;
  }
  shared_->changed.notify_one();
  ended_.wait_for(100ms);  // A thread that waits for a server that hangs is left behind.
}

void SoundPlayer::play(std::string_view path) {
  {
    const std::lock_guard lock(shared_->mutex);
    shared_->newest = path;
    shared_->asked = steady_clock::now();
  }
  shared_->changed.notify_one();
  if (ended_.valid()) return;
  const QString module = QCoreApplication::applicationDirPath() + QStringLiteral("/tolvane-sound");
  std::packaged_task<void()> task([shared = shared_, module] { work(shared, module); });
  ended_ = task.get_future();
  std::thread(std::move(task)).detach();
}

void SoundPlayer::work(const std::shared_ptr<Shared>& shared, const QString& module) {
  auto* playWave = reinterpret_cast<PlayWave*>(QLibrary::resolve(module, "playWave"));
  if (!playWave) return;  // Silence.
  const auto newer = [&](std::chrono::microseconds wait) {
    std::unique_lock lock(shared->mutex);
    return shared->changed.wait_for(lock, wait, [&] { return shared->newer(); });
  };
  while (true) {
    std::unique_lock lock(shared->mutex);
    shared->changed.wait(lock, [&] { return shared->newer(); });
    if (shared->ending) return;
    const std::string name = *std::exchange(shared->newest, std::nullopt);
    const auto latest = shared->asked + 1s;  // Whoever clicked has gone on by then.
    lock.unlock();
    const std::filesystem::path file = fileNamed(name);
    std::error_code failure;
    if (std::filesystem::is_regular_file(file, failure) && playWave(file, latest, newer)) continue;
    lock.lock();
    if (!shared->ending) QMetaObject::invokeMethod(qApp, shared->alert, Qt::QueuedConnection);
  }
}

}  // namespace platform::qt
