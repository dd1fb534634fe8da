#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "platform/files.h"
#include "platform/qt/x11.h"

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
    runDueTick();
    armTicker();
  });
}

QtDesktop::~QtDesktop() {
  for (const auto& [screen, window] : windows_) delete window;
  // Those that were dismissed last go now, while there is an application.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void QtDesktop::start(std::string_view screen) {
  handle([&] { show(screen); });
}

Size QtDesktop::displaySize() const {
  const QSize display = QGuiApplication::primaryScreen()->size();
  return {static_cast<float>(display.width()) * twipsPerPixel,
          static_cast<float>(display.height()) * twipsPerPixel};
}

std::optional<Size> QtDesktop::readPicture(std::string_view path) {
  return pictures_.load(path);
}

void QtDesktop::playwav(std::string_view path) {
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
  if (screen.frame == Frame::Backdrop) {
    if (!backdrop_) backdrop_ = std::make_unique<ScreenWindow>(*this, screen);
    showBackdrop(screen);
    return;
  }
  ScreenWindow*& window = windows_[&screen];
  if (!window) window = new ScreenWindow(*this, screen);
  window->present(ownerOf(screen));
}

void QtDesktop::dismiss(Screen& screen) {
  if (screen.frame == Frame::Backdrop) {
    hideBackdrop();
    return;
  }
  const auto found = windows_.find(&screen);
  if (found == windows_.end()) return;
  ScreenWindow& going = *found->second;
  windows_.erase(found);
  for (const auto& [other, window] : windows_) {
    if (window->owner() == &going) window->belongTo(going.owner());
  }
  going.dismiss();
}

void QtDesktop::showBackdrop(Screen& screen) {
  backdrop_->cover(screen);
  for (ScreenWindow* window : seenWindows()) {  // In front of it belongs what was open before.
    window->belongTo(backdrop_.get());
    window->raise();
  }
}

void QtDesktop::bringGameForward() {
  const auto windows = seenWindows();
  for (ScreenWindow* window : windows) window->raise();
  if (!windows.empty()) windows.back()->activateWindow();
}

void QtDesktop::hideBackdrop() {
  for (const auto& [screen, window] : windows_) {
    if (window->owner() == backdrop_.get()) window->belongTo(nullptr);
  }
  backdrop_->uncover();
}

void QtDesktop::followMinimising(const ScreenWindow& changed) {
  if (!backdrop_ || !backdrop_->isVisible()) return;
  const bool seen = !seenWindows().empty();
  if (&changed != backdrop_.get()) {
    if (seen == backdrop_->isMinimized()) setMinimised(*backdrop_->windowHandle(), !seen);
  } else if (!seen && !backdrop_->isMinimized()) {
    for (const auto& [screen, window] : windows_) setMinimised(*window->windowHandle(), false);
  } else {
    return;
  }
  if (seen) bringGameForward();
}

std::vector<ScreenWindow*> QtDesktop::seenWindows() const {
  std::vector<ScreenWindow*> seen;
  for (const auto& open : openScreens()) {
    const auto found = windows_.find(open.get());
    if (found != windows_.end() && found->second->isVisible() && !found->second->isMinimized())
      seen.push_back(found->second);
  }
  return seen;
}

// Window managers keep a window in front of the backdrop it belongs to; which of the others is in front, the
// program tells them. A Wayland compositor takes no such word, so there each window belongs to the one it was
// opened from.
ScreenWindow* QtDesktop::ownerOf(const Screen& screen) const {
  ScreenWindow* const behind = backdrop_ && backdrop_->isVisible() ? backdrop_.get() : nullptr;
  if (onX11()) return behind;
  ScreenWindow* owner = behind;
  for (ScreenWindow* window : seenWindows()) {
    if (window != windows_.at(&screen) && (behind == nullptr || window->owner() != nullptr)) owner = window;
  }
  return owner;
}

void QtDesktop::refresh() {
  for (const auto& [screen, window] : windows_) {
    window->refresh();
    Accessibility::refresh(*window);
  }
  armTicker();
}

void QtDesktop::announce(const std::string& words) {
  // The foremost window says it; the backdrop is none of a player's.
  ScreenWindow* foremost = nullptr;
  for (const auto& screen : openScreens()) {
    if (const auto found = windows_.find(screen.get()); found != windows_.end()) foremost = found->second;
  }
  if (foremost) accessibility_.announce(*foremost, words);
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
