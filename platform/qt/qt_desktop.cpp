#include "platform/qt/qt_desktop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "platform/files.h"
#include "platform/qt/window_system.h"

namespace platform::qt {

namespace {

auto showing(const Screen& screen) {
  return [&screen](const auto& window) { return &window->screen() == &screen; };
}

}  // namespace

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

Size QtDesktop::displaySize() const {
  const QSize display = QGuiApplication::primaryScreen()->size();
  return {static_cast<float>(display.width()) * twipsPerPixel,
          static_cast<float>(display.height()) * twipsPerPixel};
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
    if (!backdrop_) backdrop_ = std::make_unique<Backdrop>(*this, screen);
    covering_ = true;
    bringForward();
    return;
  }
  const auto found = std::find_if(windows_.begin(), windows_.end(), showing(screen));
  if (found == windows_.end()) {
    windows_.push_back(std::make_unique<ScreenWindow>(*this, screen));
  } else {
    std::rotate(found, found + 1, windows_.end());
  }
  windows_.back()->present(backdrop_.get());
}

void QtDesktop::dismiss(Screen& screen) {
  if (screen.frame == Frame::Backdrop) {
    covering_ = false;
    backdrop_->uncover();
    return;
  }
  std::erase_if(windows_, showing(screen));
  if (windows_.empty()) return;
  if (nobodySeen()) bringForward();
  giveKeyboard(*windows_.back()->windowHandle());  // Xfwm4 4.18 and Metacity 3.46 leave it to nobody.
}

void QtDesktop::bringForward() {
  const bool comes = covering_ && !backdrop_->isVisible();
  if (covering_) backdrop_->cover();
  for (const auto& window : windows_) {
    if (comes) window->belongTo(*backdrop_);
    window->comeForward();
  }
  if (!windows_.empty()) giveKeyboard(*windows_.back()->windowHandle());
}

void QtDesktop::followMinimising(bool minimised) {
  if (!covering_) return;
  if (!minimised) {
    bringForward();
  } else if (nobodySeen()) {
    backdrop_->hide();
  }
}

bool QtDesktop::nobodySeen() const {
  return std::ranges::all_of(windows_, [](const auto& window) { return window->isMinimized(); });
}

QMargins QtDesktop::titleBar(const ScreenWindow& window) {
  if (!titleBar_) {
    QWidget like(nullptr, window.windowFlags());
    like.setFixedSize(window.size());
    like.winId();  // Makes the window system's window.
    titleBar_ = futureFrame(*like.windowHandle()).value_or(QMargins());
  }
  return *titleBar_;
}

void QtDesktop::refresh() {
  for (const auto& window : windows_) {
    window->refresh();
    Accessibility::refresh(*window);
  }
  armTicker();
}

void QtDesktop::announce(const std::string& words) {
  if (!windows_.empty()) accessibility_.announce(*windows_.back(), words);
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
