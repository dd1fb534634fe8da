// What the widgets of a screen look like, and how the mouse and the keyboard reach them.
#pragma once

#include <QTextLayout>
#include <QWidget>
#include <optional>

#include "platform/widget.h"

namespace platform::qt {

class QtDesktop;

inline constexpr float twipsPerPixel = 15;  // At 96 dots per inch; Qt adds the display's own scale.

/// The whole pixels nearest to a place in twips.
int pixels(float twips);

/// The font a text is drawn in, sized in pixels so that it keeps its proportion to its box on every display.
QFont fontFor(const Font& font);

/// Breaks a widget's text into lines that fit its width, and returns the height they take together, in
/// pixels.
qreal layOutText(QTextLayout& text, const Appearance& look);

/// Makes the Qt widget that shows `widget` and hands mouse and keyboard on to its handlers. It belongs to
/// `parent`; `widget` must outlive it.
class View {
 public:
  View(QtDesktop& desktop, Widget& widget, QWidget& parent);

  /// Brings the Qt widget up to date if anything that can be seen has changed since the last time.
  void refresh();

  void raise() { shown_->raise(); }

  const Widget& widget() const { return widget_; }

 private:
  Widget& widget_;
  std::optional<Appearance> drawn_;  // As it was last shown; nothing before the first time.
  QWidget* shown_;                   // Owned by its Qt parent.
};

}  // namespace platform::qt
