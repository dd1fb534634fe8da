// The desktop on Qt: real windows, a real mouse, real sound.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QMargins>
#include <QTimer>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/desktop.h"
#include "platform/qt/accessibility.h"
#include "platform/qt/pictures.h"
#include "platform/qt/screen_window.h"
#include "platform/qt/sound_player.h"

namespace platform::qt {

/// A frame measured in pixels, in twips.
FrameExtents extents(const QMargins& frame);

/// Needs a QApplication.
class QtDesktop final : public Desktop {
 public:
  QtDesktop();
  ~QtDesktop() override;

  /// Shows the first screen; the rest happens while the application runs.
  void start(std::string_view screen);

  Size displaySize() const override;
  std::optional<Size> readPicture(std::string_view path) override;
  void playwav(std::string_view path) override;
  void openDocument(std::string_view target) override;
  void setPointer(Pointer pointer) override;
  void endProgram() override;
  Chance& chance() override { return chance_; }

  // --- For the windows ---

  Pictures& pictures() { return pictures_; }
  /// The frame of a window with a title bar, once it is known.
  std::optional<QMargins> titleBar() const { return titleBar_; }
  void learnTitleBar(const QMargins& frame) { titleBar_ = frame; }

  /// Puts all windows in front of the backdrop again, in their order; the foremost has the keyboard.
  void bringGameForward();

  /// `changed` was minimised or brought back: the backdrop goes with the last of the others and comes back
  /// with the first, and brings them back.
  void followMinimising(const ScreenWindow& changed);

 private:
  Moment now() const override;
  void present(Screen& screen) override;
  void dismiss(Screen& screen) override;
  void refresh() override;
  void announce(const std::string& words) override;

  void armTicker();
  void showBackdrop(Screen& screen);
  void hideBackdrop();
  std::vector<ScreenWindow*> seenWindows()
      const;  // All but the backdrop and those minimised, in their order.
  ScreenWindow* ownerOf(const Screen& screen) const;  // Null where there is none.

  QElapsedTimer clock_;
  QTimer ticker_;  // Wakes for the next tick of any screen's timer.
  ClockChance chance_;
  Pictures pictures_;
  SoundPlayer sounds_{QApplication::beep};
  Accessibility accessibility_;
  std::optional<QMargins> titleBar_;
  std::map<const Screen*, ScreenWindow*> windows_;  // All but the backdrop's.

  // One window for the whole run, made with the first backdrop and then shown and hidden: the window system
  // may lose windows that belong to another when that goes.
  std::unique_ptr<ScreenWindow> backdrop_;
};

}  // namespace platform::qt
