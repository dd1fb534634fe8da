#include "platform/qt/views.h"

#include <QPainter>
#include <array>
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

/// The whole pixels of the display nearest to a place on it.
QRect wholePixels(const QRectF& place) {
  const QPoint topLeft(qRound(place.left()), qRound(place.top()));
  return {topLeft, QPoint(qRound(place.right()) - 1, qRound(place.bottom()) - 1)};
}

void paintTick(QPainter& painter, const Appearance& look, const QRect& box, int line) {
  painter.fillRect(box, Qt::white);
  paintFrame(painter, box, line, colour(black));
  if (!look.checked) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colour(black), 2 * line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&box](double x, double y) {
    return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
  };
  painter.drawPolyline(QList<QPointF>{at(0.22, 0.52), at(0.42, 0.74), at(0.78, 0.26)});
}

/// The box of a widget in pixels.
QRect placeOf(const Appearance& look) {
  return {QPoint(pixels(look.left), pixels(look.top)),
          QPoint(pixels(look.left + look.width) - 1, pixels(look.top + look.height) - 1)};
}

/// Breaks a text into the lines of its box and returns the height they take together; nothing when that is
/// more than the box has, or when a word is wider.
std::optional<qreal> heightInBox(QTextLayout& text, const Appearance& look) {
  const qreal width = look.width / twipsPerPixel;
  // Lines are whole pixels apart, as the boxes were measured for.
  const qreal lineHeight = std::round(QFontMetricsF(text.font()).lineSpacing());
  qreal height = 0;
  bool fits = true;
  text.beginLayout();
  for (QTextLine line = text.createLine(); line.isValid(); line = text.createLine()) {
    line.setLineWidth(width);
    line.setPosition(QPointF(0, height));
    height += lineHeight;
    fits = fits && line.naturalTextWidth() <= width;
  }
  text.endLayout();
  if (!fits || height > look.height / twipsPerPixel) return std::nullopt;
  return height;
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

QRect toDisplayPixels(QPainter& painter, const QRectF& box) {
  const QRect pixels = wholePixels(painter.deviceTransform().mapRect(box));
  painter.setTransform(painter.deviceTransform().inverted());
  return pixels;
}

void paintFrame(QPainter& painter, const QRect& box, int line, QColor colour) {
  const QRegion inside(box.adjusted(line, line, -line, -line));
  for (const QRect& edge : QRegion(box) - inside) painter.fillRect(edge, colour);
}

QFont fontFor(const Font& font) {
  constexpr float twipsPerPoint = 20;
  const QString family = QString::fromUtf8(font.family.data(), static_cast<qsizetype>(font.family.size()));
  QFont made(QStringList{family, QStringLiteral("Liberation Sans")});
  made.setPixelSize(pixels(font.points * twipsPerPoint));
  made.setBold(font.bold);
  // Unhinted letters run a little wider than the whole-pixel ones that the boxes were measured for. They are
  // what every scale has, so that texts break alike at each.
  made.setHintingPreference(QFont::PreferNoHinting);
  made.setLetterSpacing(QFont::PercentageSpacing, 99);
  return made;
}

qreal layOutText(QTextLayout& text, const Appearance& look) {
  constexpr int smallest = 6;
  constexpr std::array alignments{Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};  // In the game's order.
  QFont font = fontFor(look.font);
  text.setText(QString::fromStdString(look.text));
  text.setTextOption(QTextOption(alignments.at(static_cast<std::size_t>(look.alignment))));
  for (bool tight = false;;) {
    text.setFont(font);
    const auto height = heightInBox(text, look);
    if (height) return *height;
    if (font.pixelSize() <= smallest) return look.height / twipsPerPixel;
    if (std::exchange(tight, true)) font.setPixelSize(font.pixelSize() - 1);
    font.setWordSpacing(-1);
  }
}

View::View(Pictures& pictures, Widget& widget, QWidget& parent)
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
  if (!look.picture.empty()) {
    const QTransform toDevice = QTransform::fromScale(devicePixelRatioF(), devicePixelRatioF());
    pictures_.prepare(look.picture, wholePixels(toDevice.mapRect(QRectF(geometry()))).size());
  }
  if (before && sameState && differOnlyInPlace(*before, look)) return;  // The pixels come along.
  setAttribute(Qt::WA_OpaquePaintEvent, look.background.has_value());
  update();
}

void View::paintEvent(QPaintEvent* /*event*/) {
  const Appearance& look = *drawn_;  // The widget itself may have gone with its screen.
  QPainter painter(this);
  const auto scaled = [scale = devicePixelRatioF()](qreal length) {
    return std::max(1, qRound(length * scale));
  };
  const QColor ink = fadedUnless(look.enabled, look.textColour);
  const bool hasTick = look.role == Role::CheckBox;
  constexpr int tickSide = 15;
  QRectF textBox = rect();
  if (hasTick) textBox.setLeft(tickSide + 6);

  painter.save();
  const QRect whole = toDisplayPixels(painter, rect());
  if (look.background) {
    // A button's is the colour of whoever plays or has won.
    painter.fillRect(whole, fadedUnless(look.enabled || look.role == Role::Button, *look.background));
  }
  if (!look.picture.empty()) painter.drawPixmap(whole, pictures_.scaledTo(look.picture, whole.size()));
  if (look.border) {
    paintFrame(painter, whole, scaled(look.borderWidth / twipsPerPixel), colour(look.borderColour));
  }
  if (state_.focused || look.pickedUp) {
    // A piece in the keyboard's hand has an unbroken mark; a button's leaves room for its text.
    const int line = scaled(look.role == Role::Piece ? 3 : 1);
    const qreal middle = scaled(look.role == Role::Piece ? 3 : 2) + line / 2.0;
    painter.setPen(QPen(ink, line, look.pickedUp ? Qt::SolidLine : Qt::DashLine, Qt::FlatCap, Qt::MiterJoin));
    QRectF marked(whole);
    if (hasTick) marked.setLeft(whole.left() + scaled(tickSide + 1));
    painter.drawRect(marked.adjusted(middle, middle, -middle, -middle));
  }
  if (hasTick) {
    const QSize tick(scaled(tickSide), scaled(tickSide));
    paintTick(painter, look, {whole.topLeft() + QPoint(0, (whole.height() - tick.height()) / 2), tick},
              scaled(1));
  }
  painter.restore();

  if (look.text.empty()) return;
  if (state_.down) textBox.translate(1, 1);  // A button that is held down sinks.
  QTextLayout text;
  layOutText(text, look);
  // Buttons, dice and totals have their letters in the middle, wherever their font keeps room for accents;
  // running text starts at the top.
  if (look.border || hasTick) {
    const qreal capitals = QFontMetricsF(text.font()).capHeight();
    textBox.translate(0, std::floor((textBox.height() + capitals) / 2 - text.lineAt(0).ascent()));
  }
  painter.setPen(ink);
  text.draw(&painter, textBox.topLeft());
}

}  // namespace platform::qt
