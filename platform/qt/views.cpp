#include "platform/qt/views.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <cmath>
#include <utility>

#include "platform/qt/qt_desktop.h"

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

/// A button that is held down sinks by a pixel; one chosen with the keyboard has a dotted frame.
struct ButtonState {
  bool down = false;
  bool focused = false;
};

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

void paint(QWidget& view, const Appearance& look, Pictures& pictures, ButtonState state = {}) {
  QPainter painter(&view);
  QRectF box = view.rect();
  if (look.background) painter.fillRect(box, fadedUnless(look.enabled, *look.background));
  if (!look.picture.empty()) {
    const qreal scale = view.devicePixelRatioF();
    painter.drawPixmap(box, pictures.scaledTo(look.picture, (box.size() * scale).toSize()), QRectF());
  }
  if (look.border) {
    const qreal line = look.borderWidth / twipsPerPixel;
    painter.setPen(QPen(colour(look.borderColour), line, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(box.adjusted(line / 2, line / 2, -line / 2, -line / 2));
  }
  const QColor ink = fadedUnless(look.enabled, look.textColour);
  if (state.focused) {
    painter.setPen(QPen(ink, 1, Qt::DotLine));
    painter.drawRect(box.adjusted(2.5, 2.5, -2.5, -2.5));
  }
  if (look.role == Role::CheckBox) {
    constexpr qreal side = 15;
    paintTick(painter, look, QRectF(0, std::floor((box.height() - side) / 2), side, side));
    box.setLeft(side + 6);
  }
  if (state.down) box.translate(1, 1);
  QTextLayout text;
  const qreal height = layOutText(text, look);
  // Buttons, dice and totals have their text in the middle, running text starts at the top.
  const bool middle = look.border || look.role == Role::CheckBox;
  painter.setPen(ink);
  text.draw(&painter, box.topLeft() + QPointF(0, middle ? std::round((box.height() - height) / 2) : 0));
}

/// A label, a picture, a die: whatever is no button.
class LabelView final : public QLabel {
 public:
  LabelView(QtDesktop& desktop, Widget& widget, QWidget& parent)
      : QLabel(&parent), desktop_(desktop), widget_(widget) {
    const bool deaf = !widget.onClick && !widget.onMouseMove && !widget.onMouseUp;
    setAttribute(Qt::WA_TransparentForMouseEvents, deaf);
    setMouseTracking(static_cast<bool>(widget.onMouseMove));
  }

 private:
  void paintEvent(QPaintEvent* /*event*/) override { paint(*this, widget_, desktop_.pictures()); }

  // Taken, so that the moves and the release come here even when the pointer leaves.
  void mousePressEvent(QMouseEvent* event) override {
    event->accept();
    pressed_ = !desktop_.cameTooLate(*event);
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    if (!widget_.onMouseMove) return;
    desktop_.run([this, mouse = overWidget(*event)] { widget_.onMouseMove(mouse); });
  }

  void mouseReleaseEvent(QMouseEvent* event) override {
    if (!std::exchange(pressed_, event->buttons() != Qt::NoButton)) return;
    if (widget_.onMouseUp) {
      desktop_.run([this, mouse = overWidget(*event)] { widget_.onMouseUp(mouse); });
    } else if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
      desktop_.clickWidget(widget_);
    }
  }

  // Measured from where the widget lies exactly, not from the pixel it is drawn at: a drag does not creep.
  MouseEvent overWidget(const QMouseEvent& event) const {
    const QPointF inWindow = event.scenePosition() * static_cast<qreal>(twipsPerPixel);
    MouseEvent mouse;
    mouse.buttons = (event.buttons() & Qt::LeftButton ? 1 : 0) | (event.buttons() & Qt::RightButton ? 2 : 0) |
                    (event.buttons() & Qt::MiddleButton ? 4 : 0);
    mouse.shift = (event.modifiers() & Qt::ShiftModifier ? 1 : 0) |
                  (event.modifiers() & Qt::ControlModifier ? 2 : 0) |
                  (event.modifiers() & Qt::AltModifier ? 4 : 0);
    mouse.x = static_cast<float>(inWindow.x()) - widget_.left;
    mouse.y = static_cast<float>(inWindow.y()) - widget_.top;
    return mouse;
  }

  QtDesktop& desktop_;
  Widget& widget_;
  bool pressed_ = false;  // A button went down here and is still held.
};

/// A button or a check box: real to the keyboard and to screen readers, drawn like everything else.
template <typename Button>
class ButtonView final : public Button {
 public:
  ButtonView(QtDesktop& desktop, Widget& widget, QWidget& parent)
      : Button(&parent), desktop_(desktop), widget_(widget) {
    this->setFocusPolicy(Qt::TabFocus);
    QObject::connect(this, &Button::clicked, this, [this] { desktop_.clickWidget(widget_); });
  }

 private:
  void paintEvent(QPaintEvent* /*event*/) override {
    paint(*this, widget_, desktop_.pictures(), {this->isDown(), this->hasFocus()});
  }

  void mousePressEvent(QMouseEvent* event) override {
    if (!desktop_.cameTooLate(*event)) Button::mousePressEvent(event);
  }

  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      this->click();
    } else {
      Button::keyPressEvent(event);
    }
  }

  bool hitButton(const QPoint& at) const override { return this->rect().contains(at); }

  // The model decides what is ticked.
  void nextCheckState() override {}

  QtDesktop& desktop_;
  Widget& widget_;
};

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

QWidget* makeView(QtDesktop& desktop, Widget& widget, QWidget& parent) {
  switch (widget.role) {
    case Role::Button:
      return new ButtonView<QPushButton>(desktop, widget, parent);
    case Role::CheckBox:
      return new ButtonView<QCheckBox>(desktop, widget, parent);
    case Role::Text:
      break;
  }
  return new LabelView(desktop, widget, parent);
}

bool differOnlyInPlace(Appearance before, const Appearance& now) {
  before.left = now.left;
  before.top = now.top;
  return before == now;
}

void setText(QWidget& view, const QString& text) {
  if (auto* label = qobject_cast<QLabel*>(&view)) label->setText(text);
  if (auto* button = qobject_cast<QAbstractButton*>(&view)) button->setText(text);
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

View::View(QtDesktop& desktop, Widget& widget, QWidget& parent)
    : widget_(widget), shown_(makeView(desktop, widget, parent)) {
  shown_->setObjectName(QString::fromStdString(widget.name));
  refresh();
}

void View::refresh() {
  const Appearance& look = widget_;
  if (drawn_ == look) return;
  const std::optional<Appearance> before = std::exchange(drawn_, look);
  shown_->setGeometry(placeOf(look));
  shown_->setVisible(look.visible);
  // Qt would hand the keyboard on to the next button; on a board that is New Game.
  if (!look.enabled && shown_->hasFocus()) shown_->window()->setFocus();
  shown_->setEnabled(look.enabled);
  if (before && differOnlyInPlace(*before, look)) return;  // The pixels come along.
  shown_->setAttribute(Qt::WA_OpaquePaintEvent, look.background.has_value());
  setText(*shown_, QString::fromStdString(look.text));
  if (auto* box = qobject_cast<QCheckBox*>(shown_)) box->setChecked(look.checked);
  shown_->update();
}

}  // namespace platform::qt
