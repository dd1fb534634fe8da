#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "platform/files.h"

namespace platform::qt {

FrameExtents extents(const QMargins& frame) {
  const auto twips = [](int px) { return static_cast<float>(px) * twipsPerPixel; };
  return {twips(frame.left()), twips(frame.top()), twips(frame.right()), twips(frame.bottom())};
}

QtDesktop::QtDesktop() {
  QCoreApplication::setAttribute(Qt::AA_Use96Dpi);    // For pictures that state no resolution.
  QGuiApplication::setQuitOnLastWindowClosed(false);  // Only a backdrop left counts as well; see `handle`.
  clock_.start();
  ticker_.setTimerType(Qt::PreciseTimer);
  ticker_.setSingleShot(true);
  ticker_.callOnTimeout([this] {
    runDueTick(now());
    armTicker();
  });
}

QtDesktop::~QtDesktop() {
  for (const auto& [screen, window] : windows_) delete window;
}

void QtDesktop::start(std::string_view screen) {
  handle(now(), [&] { show(screen); });
}

Size QtDesktop::displaySize() const {
  const QSize display = QGuiApplication::primaryScreen()->size();
  return {static_cast<float>(display.width()) * twipsPerPixel,
          static_cast<float>(display.height()) * twipsPerPixel};
}

std::optional<Size> QtDesktop::readPicture(std::string_view path) {
  return pictures_.load(path);
}

void QtDesktop::playSound(std::string_view path) {
  sounds_.play(path);
}

void QtDesktop::openDocument(std::string_view target) {
  const QUrl address(QString::fromUtf8(target.data(), static_cast<qsizetype>(target.size())));
  if (!address.scheme().isEmpty()) {
    QDesktopServices::openUrl(address);
    return;
  }
  const QFileInfo document(QString::fromStdString(fileNamed(target).string()));
  if (document.isFile()) QDesktopServices::openUrl(QUrl::fromLocalFile(document.absoluteFilePath()));
}

void QtDesktop::setPointer(Pointer pointer) {
  if (pointer == Pointer::Busy) {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QGuiApplication::restoreOverrideCursor();
  }
}

void QtDesktop::endProgram() {
  QCoreApplication::exit();  // `quit` would ask every window first.
}

void QtDesktop::present(Screen& screen) {
  ScreenWindow*& window = windows_[&screen];
  if (!window) {
    window = new ScreenWindow(*this, screen);
    backdropIsNew_ = backdropIsNew_ || screen.frame == Frame::Backdrop;
  }
  window->present(backdrop());
}

void QtDesktop::dismiss(Screen& screen) {
  const auto found = windows_.find(&screen);
  if (found == windows_.end()) return;
  found->second->dismiss();
  windows_.erase(found);
}

void QtDesktop::refresh() {
  for (const auto& screen : openScreens()) {
    ScreenWindow* window = windows_.at(screen.get());
    window->refresh();
    accessibility_.refresh(*window);
    // What was open before the backdrop belongs in front of it as well, in its order.
    if (backdropIsNew_) window->present(backdrop());
  }
  backdropIsNew_ = false;
  armTicker();
}

void QtDesktop::announce(const std::string& words) {
  if (!openScreens().empty()) accessibility_.announce(*windows_.at(openScreens().back().get()), words);
}

ScreenWindow* QtDesktop::backdrop() const {
  for (const auto& open : openScreens()) {
    if (open->frame == Frame::Backdrop) return windows_.at(open.get());
  }
  return nullptr;
}

Moment QtDesktop::now() const {
  return std::chrono::duration_cast<Moment>(std::chrono::nanoseconds(clock_.nsecsElapsed()));
}

void QtDesktop::armTicker() {
  const auto due = nextTick();
  if (!due) {
    ticker_.stop();
    return;
  }
  const auto wait = std::chrono::ceil<std::chrono::milliseconds>(*due - now());
  ticker_.start(std::max(wait, std::chrono::milliseconds(0)));
}

}  // namespace platform::qt
