// What a screen reader is told of the program: its windows, their widgets, where the keyboard is, and what
// the game says.
#pragma once

#include <QAccessible>
#include <QObject>
#include <QPointer>
#include <string>

#include "platform/qt/screen_window.h"

namespace platform::qt {

/// Makes the windows known to screen readers; costs next to nothing while none listens. Needs a QApplication.
class Accessibility final : public QObject, private QAccessible::ActivationObserver {
 public:
  Accessibility();
  ~Accessibility() override;

  /// Has a reader that is started after the program find it. Call it before there is a QApplication.
  static void letReadersComeLater();

  /// Tells what differs on `window` from what was last told: names, ticks, what is greyed, what the keyboard
  /// has chosen.
  static void refresh(ScreenWindow& window);

  /// Has `words` spoken once the keyboard is in `window`. Until then only the latest words are kept.
  void announce(ScreenWindow& window, const std::string& words);

 private:
  bool eventFilter(QObject* object, QEvent* event) override;
  void accessibilityActiveChanged(bool active) override;
  void tellOf(ScreenWindow& window);
  void speak();

  QPointer<ScreenWindow> speaker_;
  QString words_;  // To be spoken when `speaker_` has the keyboard; empty when nothing waits.
};

}  // namespace platform::qt
