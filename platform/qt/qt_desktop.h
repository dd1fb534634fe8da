// The desktop on Qt: real windows, a real mouse, real sound.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QMargins>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "platform/desktop.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/backdrop.h"
#include "platform/qt/pictures.h"
#include "platform/qt/screen_window.h"
#include "platform/qt/sound_player.h"

namespace platform::qt {

/// Needs a QApplication.
class QtDesktop final : public Desktop {
 public:
  QtDesktop();

  Size displaySize() const override;
  std::optional<Size> readPicture(std::string_view path) override { return pictures_.load(path); }
  void playwav(std::string_view path) override { sounds_.play(path); }
  void openDocument(std::string_view target) override;
  void setPointer(Pointer pointer) override;
  void endProgram() override;
  Chance& chance() override { return chance_; }

  // --- For the windows ---

  Pictures& pictures() { return pictures_; }
  /// The frame of windows with a title bar, to be put around `window` as well.
  QMargins titleBar(const ScreenWindow& window);
  void learnTitleBar(const QMargins& frame) { titleBar_ = frame; }

  /// Brings all windows back, in front of the backdrop and in their order; the foremost has the keyboard.
  void bringForward();

  /// A window was minimised or brought back: the last to go takes the backdrop along, the first to come back
  /// brings all back.
  void followMinimising(bool minimised);

 private:
  Moment now() const override;
  void present(Screen& screen) override;
  void dismiss(Screen& screen) override;
  void refresh() override;
  void announce(const std::string& words) override;

  void armTicker();
  bool nobodySeen() const;  // No window but the backdrop.

  QElapsedTimer clock_;
  QTimer ticker_;  // Wakes for the next tick of any screen's timer.
  ClockChance chance_;
  Pictures pictures_;
  SoundPlayer sounds_{QApplication::beep};
  Accessibility accessibility_;
  std::optional<QMargins> titleBar_;
  // Made once and then shown and hidden: windows go on belonging to it, since IceWM 3.7 loses those in front
  // that come to belong to another while they are shown.
  std::unique_ptr<Backdrop> backdrop_;
  bool covering_ = false;  // The desktop is to be hidden; the backdrop itself is while a window is seen.
  std::vector<std::unique_ptr<ScreenWindow>> windows_;  // The one shown last at the end.
};

}  // namespace platform::qt
