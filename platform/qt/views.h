// What the widgets of a screen look like.
#pragma once

#include <QTextLayout>
#include <QWidget>
#include <optional>

#include "platform/qt/pictures.h"
#include "platform/widget.h"

namespace platform::qt {

inline constexpr float twipsPerPixel = 15;  // At 96 dots per inch; Qt adds the display's own scale.

/// The whole pixels nearest to a place in twips.
int pixels(float twips);

/// Has `painter` paint in pixels of the display from here on, and returns those that `box` covers of its
/// widget. Lines are as thick wherever the scale of the display lets their edges fall.
QRect toDisplayPixels(QPainter& painter, const QRectF& box);

/// Paints a frame of this many pixels just inside `box`.
void paintFrame(QPainter& painter, const QRect& box, int line, QColor colour);

/// The font a text is drawn in, sized in pixels so that it keeps its proportion to its box on every display.
QFont fontFor(const Font& font);

/// Breaks a widget's text into lines that fit its box, with words closer together or even in smaller letters
/// where its own would not, and returns the height they take together, in pixels.
qreal layOutText(QTextLayout& text, const Appearance& look);

/// How the keyboard and the mouse have a widget, as far as that shows.
struct ViewState {
  bool focused = false;  ///< The keyboard has chosen it.
  bool down = false;     ///< The mouse holds it down.

  friend bool operator==(const ViewState&, const ViewState&) = default;
};

/// The Qt widget that shows `widget`, from one `refresh` to the next. It hears nothing itself: its window
/// hears for all.
class View final : public QWidget {
 public:
  View(Pictures& pictures, Widget& widget, QWidget& parent);

  /// Brings it up to date if anything that can be seen has changed since the last time.
  void refresh(ViewState state);

  Widget& widget() const { return widget_; }

 private:
  void paintEvent(QPaintEvent* event) override;

  Pictures& pictures_;
  Widget& widget_;
  std::optional<Appearance> drawn_;  // As it was last shown; nothing before the first time.
  ViewState state_;
};

}  // namespace platform::qt
