#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

#include "platform/qt/window_system.h"

namespace platform::qt {

namespace {

/// Null where there is no X server: on Wayland, and offscreen.
xcb_connection_t* connection() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

xcb_window_t root(xcb_connection_t* x) {
  return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
  return {reply, std::free};
}

xcb_atom_t atom(xcb_connection_t* x, std::string_view name) {
  const auto asked = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const auto reply = owned(xcb_intern_atom_reply(x, asked, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// The numbers that a property holds; none where there is no such property.
std::vector<std::uint32_t> numbers(xcb_connection_t* x, xcb_window_t window, xcb_atom_t property) {
  constexpr std::uint32_t most = 4096;
  const auto asked = xcb_get_property(x, 0, window, property, XCB_ATOM_ANY, 0, most);
  const auto reply = owned(xcb_get_property_reply(x, asked, nullptr));
  if (!reply || reply->format != 32) return {};
  const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

xcb_window_t idOf(const QWindow& window) {
  return static_cast<xcb_window_t>(window.winId());
}

void tellWindowManager(xcb_connection_t* x, const QWindow& window, xcb_atom_t what, std::uint32_t detail) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = idOf(window);
  message.type = what;
  message.data.data32[0] = detail;
  xcb_send_event(x, 0, root(x), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));  // NOLINT(*-reinterpret-cast): as xcb has it.
}

int inPixels(double dots, const QWindow& window) {
  return static_cast<int>(std::lround(dots / window.devicePixelRatio()));
}

}  // namespace

const quint32 firstScanCode = 8;

// The game places and stacks its own windows, which only X11 lets it do, if anything does; Wayland is better
// than nothing.
void chooseWindowSystem() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && !qEnvironmentVariableIsEmpty("DISPLAY"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
}

std::optional<QMargins> futureFrame(QWindow& window) {
  xcb_connection_t* x = connection();
  if (!x) return std::nullopt;
  const xcb_atom_t request = atom(x, "_NET_REQUEST_FRAME_EXTENTS");
  const auto offered = numbers(x, root(x), atom(x, "_NET_SUPPORTED"));
  if (std::find(offered.begin(), offered.end(), request) == offered.end()) return std::nullopt;

  tellWindowManager(x, window, request, 0);

  // It comes as soon as the window manager has its turn, and wakes the event loop.
  constexpr std::chrono::seconds patience{1};
  const QDeadlineTimer end(patience);
  QTimer wake;
  wake.start(patience);
  const xcb_atom_t extents = atom(x, "_NET_FRAME_EXTENTS");
  auto sides = numbers(x, idOf(window), extents);
  while (sides.size() != 4 && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    sides = numbers(x, idOf(window), extents);
  }
  if (sides.size() != 4) return std::nullopt;
  const auto side = [&](std::size_t i) { return inPixels(sides[i], window); };
  return QMargins(side(0), side(2), side(1), side(3));
}

// Qt hears of it from the window manager, maybe later.
QPoint standsAt(const QWindow& window) {
  xcb_connection_t* x = connection();
  if (!x) return window.position();
  const auto asked = xcb_translate_coordinates(x, idOf(window), root(x), 0, 0);
  const auto reply = owned(xcb_translate_coordinates_reply(x, asked, nullptr));
  return reply ? QPoint(inPixels(reply->dst_x, window), inPixels(reply->dst_y, window)) : window.position();
}

// Qt would ask in the name of the event that it heard last. A window manager that has since taken the
// keyboard from a window that went (Xfwm4 4.18) finds that too old; to be asked in no event's name means now.
void giveKeyboard(QWindow& window) {
  xcb_connection_t* x = connection();
  if (!x) return window.requestActivate();
  constexpr std::uint32_t application = 1;
  tellWindowManager(x, window, atom(x, "_NET_ACTIVE_WINDOW"), application);
  xcb_flush(x);
}

bool handOver(QWindow& window, const QWindow& owner) {
  xcb_connection_t* x = connection();
  if (!x) return false;
  const auto behind = idOf(owner);
  xcb_change_property(x, XCB_PROP_MODE_REPLACE, idOf(window), XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32,
                      1, &behind);
  return true;
}

}  // namespace platform::qt
