#include "platform/qt/views.h"

#include <QPainter>
#include <cmath>
#include <utility>

namespace platform::qt {

namespace {

QColor colour(Colour from) {
  return {from.red, from.green, from.blue};
}

/// What is disabled fades towards grey.
QColor fadedUnless(bool enabled, Colour from) {
  if (enabled) return colour(from);
  const auto faded = [](int channel) { return (2 * channel + 3 * 128) / 5; };
  return {faded(from.red), faded(from.green), faded(from.blue)};
}

Qt::Alignment alignmentOf(const Appearance& look) {
  switch (look.alignment) {
    case Alignment::Left:
      break;
    case Alignment::Centre:
      return Qt::AlignHCenter;
    case Alignment::Right:
      return Qt::AlignRight;
  }
  return Qt::AlignLeft;
}

void paintTick(QPainter& painter, const Appearance& look, QRectF box) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(box, Qt::white);
  painter.setPen(QPen(colour(black), 1));
  painter.drawRect(box.adjusted(0, 0, -1, -1));
  if (!look.checked) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour(black), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&box](double x, double y) {
    return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
  };
  painter.drawPolyline(QList<QPointF>{at(0.22, 0.52), at(0.42, 0.74), at(0.78, 0.26)});
}

/// The box of a widget in pixels. Running text that needs more than its box takes it, downwards.
QRect placeOf(const Appearance& look) {
  const QPoint topLeft(pixels(look.left), pixels(look.top));
  QRect place(topLeft, QPoint(pixels(look.left + look.width) - 1, pixels(look.top + look.height) - 1));
  if (!look.border && !look.text.empty()) {
    QTextLayout text;
    place.setHeight(std::max(place.height(), static_cast<int>(layOutText(text, look))));
  }
  return place;
}

bool differOnlyInPlace(Appearance before, const Appearance& now) {
  before.left = now.left;
  before.top = now.top;
  return before == now;
}

}  // namespace

int pixels(float twips) {
  return static_cast<int>(std::lround(twips / twipsPerPixel));
}

QFont fontFor(const Font& font) {
  constexpr float twipsPerPoint = 20;
  const QString family = QString::fromUtf8(font.family.data(), static_cast<qsizetype>(font.family.size()));
  QFont made(QStringList{family, QStringLiteral("Liberation Sans")});
  made.setPixelSize(pixels(font.points * twipsPerPoint));
  made.setBold(font.bold);
  // Unhinted letters run a little wider than the whole-pixel ones that the boxes were measured for.
  made.setLetterSpacing(QFont::PercentageSpacing, 99);
  return made;
}

qreal layOutText(QTextLayout& text, const Appearance& look) {
  const QFont font = fontFor(look.font);
  const QFontMetricsF metrics(font);
  text.setFont(font);
  text.setText(QString::fromStdString(look.text));
  text.setTextOption(QTextOption(alignmentOf(look)));
  // A line that fits to the pixel must not break for a rounding.
  qreal width = look.width / twipsPerPixel;
  const qreal natural = metrics.horizontalAdvance(text.text());
  if (natural < width + 1) width = std::max(width, natural);
  // Lines are whole pixels apart, as the boxes were measured for.
  const qreal lineHeight = std::round(metrics.lineSpacing());
  qreal height = 0;
  text.beginLayout();
  for (QTextLine line = text.createLine(); line.isValid(); line = text.createLine()) {
    line.setLineWidth(width);
    line.setPosition(QPointF(0, height));
    height += lineHeight;
  }
  text.endLayout();
  return height;
}

View::View(Pictures& pictures, const Widget& widget, QWidget& parent)
    : QWidget(&parent), pictures_(pictures), widget_(widget) {
  setObjectName(QString::fromStdString(widget.name));
  setAttribute(Qt::WA_TransparentForMouseEvents);
  refresh({});
}

void View::refresh(ViewState state) {
  const Appearance& look = widget_;
  if (drawn_ == look && state_ == state) return;
  const std::optional<Appearance> before = std::exchange(drawn_, look);
  const bool sameState = std::exchange(state_, state) == state;
  setGeometry(placeOf(look));
  setVisible(look.visible);
  if (before && sameState && differOnlyInPlace(*before, look)) return;  // The pixels come along.
  setAttribute(Qt::WA_OpaquePaintEvent, look.background.has_value());
  update();
}

void View::paintEvent(QPaintEvent* /*event*/) {
  const Appearance& look = *drawn_;  // The widget itself may have gone with its screen.
  QPainter painter(this);
  QRectF box = rect();
  if (look.background) painter.fillRect(box, fadedUnless(look.enabled, *look.background));
  if (!look.picture.empty()) {
    const qreal scale = devicePixelRatioF();
    painter.drawPixmap(box, pictures_.scaledTo(look.picture, (box.size() * scale).toSize()), QRectF());
  }
  if (look.border) {
    const qreal line = look.borderWidth / twipsPerPixel;
    painter.setPen(QPen(colour(look.borderColour), line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2));
  }
  const QColor ink = fadedUnless(look.enabled, look.textColour);
  if (state_.focused) {
    // A piece in the keyboard's hand has an unbroken mark.
    painter.setPen(QPen(ink, 3, look.pickedUp ? Qt::SolidLine : Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(box.adjusted(4.5, 4.5, -4.5, -4.5));
  }
  if (look.role == Role::CheckBox) {
    constexpr qreal side = 15;
    paintTick(painter, look, QRectF(0, std::floor((box.height() - side) / 2), side, side));
    box.setLeft(side + 6);
  }
  if (state_.down) box.translate(1, 1);  // A button that is held down sinks.
  QTextLayout text;
  const qreal height = layOutText(text, look);
  // Buttons, dice and totals have their text in the middle, running text starts at the top.
  const bool middle = look.border || look.role == Role::CheckBox;
  painter.setPen(ink);
  text.draw(&painter, box.topLeft() + QPointF(0, middle ? std::round((box.height() - height) / 2) : 0));
}

}  // namespace platform::qt
