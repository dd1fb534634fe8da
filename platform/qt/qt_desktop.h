// The desktop on Qt: real windows, a real mouse, real sound.
#pragma once

#include <QElapsedTimer>
#include <QMargins>
#include <QTimer>
#include <map>

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
  void playSound(std::string_view path) override;
  void openDocument(std::string_view target) override;
  void setPointer(Pointer pointer) override;
  void endProgram() override;
  Chance& chance() override { return chance_; }

  // --- For the windows ---

  Moment now() const;
  Pictures& pictures() { return pictures_; }
  QMargins titleBarMargins() const { return titleBar_; }
  void learnTitleBarMargins(const QMargins& frame) { titleBar_ = frame; }

 private:
  void present(Screen& screen) override;
  void dismiss(Screen& screen) override;
  void refresh() override;
  void announce(const std::string& words) override;

  void armTicker();
  ScreenWindow* backdrop() const;  // Null where there is none.

  QElapsedTimer clock_;
  QTimer ticker_;  // Wakes for the next tick of any screen's timer.
  ClockChance chance_;
  Pictures pictures_;
  SoundPlayer sounds_;
  Accessibility accessibility_;
  QMargins titleBar_;
  std::map<const Screen*, ScreenWindow*> windows_;
  bool backdropIsNew_ = false;  // It was shown by the running handler.
};

}  // namespace platform::qt
