#include "platform/qt/accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <array>
#include <optional>
#include <utility>

#include "platform/qt/qt_desktop.h"

namespace platform::qt {

namespace {

QAccessible::Role roleOf(const Widget& widget) {
  // In the order of the game's roles. A piece is a list item: of those that can be chosen, the one that
  // readers read by its name alone.
  constexpr std::array roles{QAccessible::NoRole,  QAccessible::StaticText, QAccessible::Heading,
                             QAccessible::Button,  QAccessible::CheckBox,   QAccessible::Link,
                             QAccessible::ListItem};
  return roles.at(static_cast<std::size_t>(widget.role));
}

QString nameOf(const Widget& widget) {
  return QString::fromStdString(widget.spokenName.empty() ? widget.text : widget.spokenName).simplified();
}

/// What the game says, for those versions of Qt that know no announcements: readers speak the text of a
/// notification within a status bar when it is shown, and say nothing of their own about it.
class SpokenText final : public QAccessibleWidget {
 public:
  SpokenText(QAccessible::Role role, QWidget& parent) : QAccessibleWidget(new QWidget(&parent), role) {
    widget()->setAccessibleName(QStringLiteral("Messages"));
    widget()->hide();  // Or Qt 6.8 has it read out with its window.
    QAccessible::registerAccessibleInterface(this);
  }

  void show(const QString& words) {
    widget()->setAccessibleName(words);  // Readers that keep names hear of this.
    QAccessibleEvent shown(this, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
  }

  using QAccessibleWidget::widget;
  QRect rect() const override { return {}; }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = role() == QAccessible::StatusBar;
    state.readOnly = true;
    return state;
  }
};

/// A widget, as readers meet it.
class AccessibleView final : public QAccessibleWidget {
 public:
  explicit AccessibleView(View& view) : QAccessibleWidget(&view), view_(view) {}

  /// Tells of what has changed since the last time; a view that is new has changed nothing.
  void refresh() {
    Told now{nameOf(view_.widget()), state()};
    const std::optional<Told> before = std::exchange(told_, now);
    if (!before) return;
    if (before->name != now.name) send(QAccessibleEvent(&view_, QAccessible::NameChanged));
    QAccessible::State changed;
    changed.checked = before->state.checked != now.state.checked;
    if (changed.checked) send(QAccessibleStateChangeEvent(&view_, changed));
    changed = {};
    changed.disabled = before->state.disabled != now.state.disabled;
    if (changed.disabled) send(QAccessibleStateChangeEvent(&view_, changed));
    if (now.state.focused && !before->state.focused) send(QAccessibleEvent(&view_, QAccessible::Focus));
  }

  QAccessible::Role role() const override { return roleOf(view_.widget()); }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? nameOf(view_.widget()) : QString();
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.invisible = !view_.isVisible();
    const Widget& widget = view_.widget();
    state.disabled = !widget.enabled;
    state.focusable = widget.tabStop != 0;
    state.focused = screen().focus() == &widget && view_.isActiveWindow();
    state.checkable = widget.role == Role::CheckBox;
    state.checked = widget.checked;
    return state;
  }

  int childCount() const override { return 0; }
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }

  QStringList actionNames() const override {
    QStringList names;
    const Widget& widget = view_.widget();
    if (!widget.visible || !widget.enabled || widget.tabStop == 0) return names;
    names << (widget.role == Role::CheckBox ? toggleAction() : pressAction()) << setFocusAction();
    return names;
  }
  void doAction(const QString& action) override {
    if (!actionNames().contains(action)) return;
    Widget& widget = view_.widget();
    QtDesktop& desktop = screenWindow().desktop();
    if (action != setFocusAction() && desktop.click(widget)) return;
    desktop.handle([&] { screen().setFocus(widget); });
    // A piece is not clicked but picked up and put down.
    if (action != setFocusAction()) desktop.pressKey(screen(), Key::Space);
  }

 private:
  struct Told {
    QString name;
    QAccessible::State state;
  };

  template <typename Event>
  static void send(Event event) {
    QAccessible::updateAccessibility(&event);
  }

  ScreenWindow& screenWindow() const { return static_cast<ScreenWindow&>(*view_.parentWidget()); }
  Screen& screen() const { return screenWindow().screen(); }

  View& view_;
  std::optional<Told> told_;
};

/// The window of a screen: its widgets in the order they are read in, whatever lies in front of what, and
/// last what the game says.
class AccessibleWindow final : public QAccessibleWidget {
 public:
  explicit AccessibleWindow(ScreenWindow& window)
      : QAccessibleWidget(&window, QAccessible::Window), window_(window) {}

  /// Readers miss what an object says that has just spoken, so two take turns.
  void speak(const QString& words) {
    std::swap(lines_[0], lines_[1]);
    lines_[0]->show(words);
  }

  QString text(QAccessible::Text kind) const override {
    const Screen& screen = window_.screen();
    if (kind != QAccessible::Name) return {};
    return QString::fromStdString(screen.spokenName.empty() ? screen.caption : screen.spokenName)
        .simplified();
  }
  int childCount() const override { return static_cast<int>(children().size()); }
  QAccessibleInterface* child(int index) const override { return children().value(index); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return static_cast<int>(children().indexOf(child));
  }
  QAccessibleInterface* focusChild() const override {
    const Widget* chosen = window_.screen().focus();
    return chosen ? QAccessible::queryAccessibleInterface(window_.view(*chosen)) : nullptr;
  }

 private:
  QList<QAccessibleInterface*> children() const {
    QList<QAccessibleInterface*> all;
    for (const Widget* widget : window_.screen().widgets()) {
      if (!widget->visible || widget->role == Role::Decoration || nameOf(*widget).isEmpty()) continue;
      all << QAccessible::queryAccessibleInterface(window_.view(*widget));
    }
    return all << speech_;
  }

  ScreenWindow& window_;
  SpokenText* speech_ = new SpokenText(QAccessible::StatusBar, window_);  // These go with the window.
  std::array<SpokenText*, 2> lines_{new SpokenText(QAccessible::Notification, *speech_->widget()),
                                    new SpokenText(QAccessible::Notification, *speech_->widget())};
};

QAccessibleInterface* interfaceFor(const QString& /*className*/, QObject* object) {
  if (auto* view = dynamic_cast<View*>(object)) return new AccessibleView(*view);
  if (auto* window = dynamic_cast<ScreenWindow*>(object)) return new AccessibleWindow(*window);
  if (auto* backdrop = dynamic_cast<Backdrop*>(object))
    return new QAccessibleWidget(backdrop, QAccessible::Window);
  return nullptr;
}

}  // namespace

Accessibility::Accessibility() {
  QAccessible::installFactory(interfaceFor);
  QAccessible::installActivationObserver(this);
  qApp->installEventFilter(this);
}

Accessibility::~Accessibility() {
  QAccessible::removeActivationObserver(this);
  QAccessible::removeFactory(interfaceFor);
}

void Accessibility::letReadersComeLater() {
  qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");  // Qt looks for a reader only when it starts.
}

void Accessibility::refresh(ScreenWindow& window) {
  if (!QAccessible::isActive()) return;
  for (View* view : window.views()) {
    if (auto* told = dynamic_cast<AccessibleView*>(QAccessible::queryAccessibleInterface(view))) {
      told->refresh();
    }
  }
}

void Accessibility::announce(ScreenWindow& window, const std::string& words) {
  speaker_ = &window;
  words_ = QString::fromStdString(words);
  if (window.isActiveWindow()) speak();
}

bool Accessibility::eventFilter(QObject* object, QEvent* event) {
  auto* window = event->type() == QEvent::WindowActivate ? dynamic_cast<ScreenWindow*>(object) : nullptr;
  // A reader falls silent to speak the window's name; what else there is to tell comes after that.
  if (window)
    QMetaObject::invokeMethod(
        window, [=, this] { tellOf(*window); }, Qt::QueuedConnection);
  return false;
}

// The first window says its words before the way to the readers is open; Qt opens it when this has returned.
void Accessibility::accessibilityActiveChanged(bool active) {
  if (!active || !speaker_) return;
  QMetaObject::invokeMethod(
      speaker_, [this, window = speaker_.data()] { tellOf(*window); }, Qt::QueuedConnection);
}

void Accessibility::tellOf(ScreenWindow& window) {
  if (!window.isActiveWindow()) return;
  refresh(window);
  if (speaker_ == &window && !words_.isEmpty()) speak();
}

void Accessibility::speak() {
  if (!QAccessible::isActive()) return;
  const QString words = std::exchange(words_, QString());
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent said(speaker_, words);
  QAccessible::updateAccessibility(&said);
#else
  if (auto* window = dynamic_cast<AccessibleWindow*>(QAccessible::queryAccessibleInterface(speaker_))) {
    window->speak(words);
  }
#endif
}

}  // namespace platform::qt
