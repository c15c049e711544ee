#include "platform_qt/x11_windows.h"

#include <QByteArray>
#include <QGuiApplication>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

#include <xcb/xcb.h>

namespace practice::desktop {
namespace {

// Replies of the X server are the receiver's to free.
struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <class Reply>
using Owned = std::unique_ptr<Reply, Free>;

xcb_connection_t* connection() {
  auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return application == nullptr ? nullptr : application->connection();
}

xcb_atom_t atom(xcb_connection_t* server, const char* name) {
  const auto cookie =
      xcb_intern_atom(server, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray property(xcb_connection_t* server, xcb_window_t window, xcb_atom_t name) {
  constexpr std::uint32_t most_words = 4096;
  const auto cookie =
      xcb_get_property(server, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, most_words);
  const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(server, cookie, nullptr));
  if (!reply) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> numbers_in(const QByteArray& bytes) {
  std::vector<std::uint32_t> numbers(static_cast<std::size_t>(bytes.size()) /
                                     sizeof(std::uint32_t));
  std::memcpy(numbers.data(), bytes.constData(), numbers.size() * sizeof(std::uint32_t));
  return numbers;
}

// A window manager keeps a list of them; without one, they are the children of the root window.
std::vector<xcb_window_t> windows_on_the_desktop(xcb_connection_t* server) {
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  auto windows = numbers_in(property(server, root, atom(server, "_NET_CLIENT_LIST")));
  if (!windows.empty()) return windows;
  const Owned<xcb_query_tree_reply_t> tree(
      xcb_query_tree_reply(server, xcb_query_tree(server, root), nullptr));
  if (!tree) return {};
  const xcb_window_t* children = xcb_query_tree_children(tree.get());
  return {children, children + xcb_query_tree_children_length(tree.get())};
}

void ask_to_close(xcb_connection_t* server, xcb_window_t window) {
  constexpr std::uint8_t words_of_32_bits = 32;
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = words_of_32_bits;
  message.window = window;
  message.type = atom(server, "WM_PROTOCOLS");
  message.data.data32[0] = atom(server, "WM_DELETE_WINDOW");
  message.data.data32[1] = XCB_CURRENT_TIME;
  xcb_send_event(server, 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
}

}  // namespace

void close_windows_titled(const QString& text) {
  xcb_connection_t* server = connection();
  if (server == nullptr) return;
  const xcb_atom_t name = atom(server, "_NET_WM_NAME");
  for (const xcb_window_t window : windows_on_the_desktop(server)) {
    QByteArray title = property(server, window, name);
    if (title.isEmpty()) title = property(server, window, XCB_ATOM_WM_NAME);
    if (QString::fromUtf8(title).contains(text)) ask_to_close(server, window);
  }
  xcb_flush(server);
}

QRect geometry_of(std::uint32_t window) {
  xcb_connection_t* server = connection();
  if (server == nullptr) return {};
  const Owned<xcb_get_geometry_reply_t> reply(
      xcb_get_geometry_reply(server, xcb_get_geometry(server, window), nullptr));
  return reply ? QRect(reply->x, reply->y, reply->width, reply->height) : QRect();
}

}  // namespace practice::desktop
