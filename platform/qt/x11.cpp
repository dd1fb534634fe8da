#include "platform/qt/x11.h"

#include <QGuiApplication>
#include <QWindow>

#if QT_CONFIG(xcb)

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <span>
#include <string_view>
#include <thread>
#include <xcb/xcb.h>

namespace platform::qt {

namespace {

struct Freed {
  void operator()(void* reply) const { std::free(reply); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Freed>;

xcb_connection_t* connection() {
  const auto* x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 ? x11->connection() : nullptr;
}

Owned<xcb_get_property_reply_t> read(xcb_connection_t* x, xcb_window_t window, xcb_atom_t property) {
  constexpr std::uint32_t most = 4096;
  const auto asked = xcb_get_property(x, 0, window, property, XCB_ATOM_ANY, 0, most);
  return Owned<xcb_get_property_reply_t>(xcb_get_property_reply(x, asked, nullptr));
}

std::span<const std::uint32_t> numbers(const xcb_get_property_reply_t& reply) {
  if (reply.format != 32) return {};
  return {static_cast<const std::uint32_t*>(xcb_get_property_value(&reply)), reply.value_len};
}

xcb_window_t root(xcb_connection_t* x) {
  return xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
}

template <std::size_t count>
std::array<xcb_atom_t, count> atoms(xcb_connection_t* x, const std::array<std::string_view, count>& names) {
  std::array<xcb_intern_atom_cookie_t, count> asked{};  // All at once: one way to the server and back.
  for (std::size_t i = 0; i < count; ++i)
    asked[i] = xcb_intern_atom(x, 0, static_cast<std::uint16_t>(names[i].size()), names[i].data());
  std::array<xcb_atom_t, count> found{};
  for (std::size_t i = 0; i < count; ++i) {
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(x, asked[i], nullptr));
    if (reply) found[i] = reply->atom;
  }
  return found;
}

void tellWindowManager(xcb_connection_t* x, xcb_window_t window, xcb_atom_t what, std::uint32_t detail) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = what;
  message.data.data32[0] = detail;
  xcb_send_event(x, 0, root(x), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));  // NOLINT(*-reinterpret-cast): as xcb has it.
}

}  // namespace

bool onX11() {
  return connection() != nullptr;
}

bool standsInFrontOfFullScreen() {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> x(xcb_connect(nullptr, nullptr),
                                                                       xcb_disconnect);
  if (xcb_connection_has_error(x.get())) return true;
  const auto [check, name] =
      atoms(x.get(), std::array<std::string_view, 2>{"_NET_SUPPORTING_WM_CHECK", "_NET_WM_NAME"});
  const auto manager = read(x.get(), root(x.get()), check);
  if (!manager || numbers(*manager).empty()) return true;
  const auto called = read(x.get(), numbers(*manager).front(), name);
  return !called || std::string_view(static_cast<const char*>(xcb_get_property_value(called.get())),
                                     called->value_len) != "Weston WM";
}

std::optional<QMargins> futureFrame(QWindow& window) {
  xcb_connection_t* x = connection();
  if (!x) return std::nullopt;
  const auto [listed, request, extents] = atoms(
      x,
      std::array<std::string_view, 3>{"_NET_SUPPORTED", "_NET_REQUEST_FRAME_EXTENTS", "_NET_FRAME_EXTENTS"});
  const auto supported = read(x, root(x), listed);
  if (!supported) return std::nullopt;
  const auto offered = numbers(*supported);
  if (std::find(offered.begin(), offered.end(), request) == offered.end()) return std::nullopt;

  const auto id = static_cast<xcb_window_t>(window.winId());
  tellWindowManager(x, id, request, 0);
  using namespace std::chrono_literals;

  const auto end = std::chrono::steady_clock::now() + 40ms;  // Less than anyone notices.
  do {
    const auto frame = read(x, id, extents);
    if (!frame) return std::nullopt;
    if (const auto sides = numbers(*frame); sides.size() == 4) {
      const auto side = [&](std::size_t i) {
        return static_cast<int>(std::lround(sides[i] / window.devicePixelRatio()));
      };
      return QMargins(side(0), side(2), side(1), side(3));
    }
    std::this_thread::sleep_for(100us);
  } while (std::chrono::steady_clock::now() < end);
  return std::nullopt;
}

void setTransientParentOfMapped(QWindow& window, const QWindow* parent) {
  xcb_connection_t* x = connection();
  if (!x) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  if (parent) {
    const auto owner = static_cast<xcb_window_t>(parent->winId());
    xcb_change_property(x, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 32, 1,
                        &owner);
  } else {
    xcb_delete_property(x, id, XCB_ATOM_WM_TRANSIENT_FOR);
  }
}

void setMinimised(QWindow& window, bool minimised) {
  xcb_connection_t* x = connection();
  if (!x) return;
  const auto id = static_cast<xcb_window_t>(window.winId());
  if (minimised) {
    constexpr std::uint32_t iconic = 3;
    tellWindowManager(x, id, atoms(x, std::array<std::string_view, 1>{"WM_CHANGE_STATE"})[0], iconic);
  } else {
    xcb_map_window(x, id);
  }
  xcb_flush(x);
}

}  // namespace platform::qt

#else

namespace platform::qt {

bool onX11() {
  return false;
}

bool standsInFrontOfFullScreen() {
  return true;
}

std::optional<QMargins> futureFrame(QWindow& /*window*/) {
  return std::nullopt;
}

void setTransientParentOfMapped(QWindow& /*window*/, const QWindow* /*parent*/) {}

void setMinimised(QWindow& /*window*/, bool /*minimised*/) {}

}  // namespace platform::qt

#endif
