// By the window managers' common rules (EWMH), over a connection of its own: the toolkit
// knows only the editor's windows.
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <future>
#include <memory>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/window_activation.h"

namespace vesmora {
namespace {

constexpr std::uint32_t kLongestProperty = 0x10000;  // in units of four bytes

struct Release {
  void operator()(void* memory) const { std::free(memory); }
};
/// What libxcb hands out is the caller's to free.
template <typename Reply>
using Owned = std::unique_ptr<Reply, Release>;

class Desktop {
 public:
  Desktop() : connection_(xcb_connect(nullptr, nullptr)) {
    if (!Connected()) return;
    clientList_ = Atom("_NET_CLIENT_LIST");
    activeWindow_ = Atom("_NET_ACTIVE_WINDOW");
    windowName_ = Atom("_NET_WM_NAME");
    processNumber_ = Atom("_NET_WM_PID");
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop() { xcb_disconnect(connection_); }

  bool Connected() const { return xcb_connection_has_error(connection_) == 0; }

  std::vector<xcb_window_t> Roots() const {
    std::vector<xcb_window_t> roots;
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (; screen.rem > 0; xcb_screen_next(&screen)) roots.push_back(screen.data->root);
    return roots;
  }

  /// The windows that the window manager looks after, minimised ones included.
  std::vector<xcb_window_t> Windows(xcb_window_t root) const {
    return Numbers(root, clientList_, XCB_ATOM_WINDOW);
  }

  /// Empty also when the window is gone by now.
  std::string Title(xcb_window_t window) const {
    std::string title = Text(window, windowName_);
    return title.empty() ? Text(window, XCB_ATOM_WM_NAME) : title;
  }

  bool IsOwn(xcb_window_t window) const {
    const auto numbers = Numbers(window, processNumber_, XCB_ATOM_CARDINAL);
    return !numbers.empty() && numbers.front() == static_cast<std::uint32_t>(::getpid());
  }

  void Activate(xcb_window_t root, xcb_window_t window) const {
    constexpr std::uint32_t kOnUsersBehalf = 2;  // as a task bar asks; never held back
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = activeWindow_;
    message.data.data32[0] = kOnUsersBehalf;
    message.data.data32[1] = XCB_CURRENT_TIME;
    static_assert(sizeof(message) == 32);
    xcb_send_event(connection_, 0, root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    // The server has it when it answers a later request.
    const Owned<void> answer(
        xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  }

 private:
  xcb_atom_t Atom(std::string_view name) const {
    const auto request =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_, request, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
  }

  /// Null when the window is gone or the connection broke.
  Owned<xcb_get_property_reply_t> Property(xcb_window_t window, xcb_atom_t property,
                                           xcb_atom_t type) const {
    const auto request =
        xcb_get_property(connection_, 0, window, property, type, 0, kLongestProperty);
    return Owned<xcb_get_property_reply_t>(xcb_get_property_reply(connection_, request, nullptr));
  }

  std::vector<std::uint32_t> Numbers(xcb_window_t window, xcb_atom_t property,
                                     xcb_atom_t type) const {
    const auto reply = Property(window, property, type);
    if (!reply || reply->format != 32) return {};
    std::vector<std::uint32_t> numbers(reply->value_len);
    if (!numbers.empty()) {
      std::memcpy(numbers.data(), xcb_get_property_value(reply.get()),
                  numbers.size() * sizeof(std::uint32_t));
    }
    return numbers;
  }

  /// Up to its first NUL: some programs store one at the end.
  std::string Text(xcb_window_t window, xcb_atom_t property) const {
    const auto reply = Property(window, property, XCB_ATOM_ANY);
    if (!reply || reply->format != 8) return {};
    const auto* text = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {text, ::strnlen(text, reply->value_len)};
  }

  xcb_connection_t* connection_;
  xcb_atom_t clientList_ = XCB_ATOM_NONE;
  xcb_atom_t activeWindow_ = XCB_ATOM_NONE;
  xcb_atom_t windowName_ = XCB_ATOM_NONE;
  xcb_atom_t processNumber_ = XCB_ATOM_NONE;
};

bool FindAndActivate(const std::string& title) {
  const Desktop desktop;
  if (!desktop.Connected()) return false;
  for (const xcb_window_t root : desktop.Roots()) {
    for (const xcb_window_t window : desktop.Windows(root)) {
      if (desktop.Title(window) != title || desktop.IsOwn(window)) continue;
      desktop.Activate(root, window);
      return desktop.Connected();
    }
  }
  return false;
}

}  // namespace

bool ActivateWindowByTitle(const std::string& title) {
  // An X server that is to be started on demand and cannot start never answers. The look
  // therefore happens beside the editor, and one that takes too long is left to itself.
  constexpr std::chrono::seconds kPatience(2);
  std::packaged_task<bool()> look([title] { return FindAndActivate(title); });
  std::future<bool> found = look.get_future();
  std::thread(std::move(look)).detach();
  return found.wait_for(kPatience) == std::future_status::ready && found.get();
}

}  // namespace vesmora
