// By the window managers' common rules (EWMH), over a connection of its own: the toolkit
// knows only the editor's windows.
#include <unistd.h>
#include <xcb/xcb_ewmh.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <future>
#include <thread>
#include <utility>
#include <vector>

#include "platform/qt/window_activation.h"

namespace vesmora {
namespace {

class Desktop {
 public:
  Desktop() : connection_(xcb_connect(nullptr, nullptr)) {
    if (!IsConnected()) return;
    auto* requests = xcb_ewmh_init_atoms(connection_, &rules_);
    isReady_ = xcb_ewmh_init_atoms_replies(&rules_, requests, nullptr) != 0;
  }
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  ~Desktop() {
    if (isReady_) xcb_ewmh_connection_wipe(&rules_);
    xcb_disconnect(connection_);
  }

  /// False also when the connection breaks meanwhile.
  bool Activate(const std::string& title) {
    for (int screen = 0; isReady_ && screen < rules_.nb_screens; ++screen) {
      for (const xcb_window_t window : Windows(screen)) {
        if (Title(window) != title || IsOwn(window)) continue;
        // As a task bar asks, which is never held back.
        xcb_ewmh_request_change_active_window(&rules_, screen, window,
                                              XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER, XCB_CURRENT_TIME,
                                              XCB_WINDOW_NONE);
        // The server has it when it answers a later request.
        std::free(
            xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
        return IsConnected();
      }
    }
    return false;
  }

 private:
  bool IsConnected() const { return xcb_connection_has_error(connection_) == 0; }

  /// Those that the window manager looks after, minimised ones included.
  std::vector<xcb_window_t> Windows(int screen) {
    const auto request = xcb_ewmh_get_client_list(&rules_, screen);
    xcb_ewmh_get_windows_reply_t reply = {};
    if (xcb_ewmh_get_client_list_reply(&rules_, request, &reply, nullptr) == 0) return {};
    std::vector<xcb_window_t> windows(reply.windows, reply.windows + reply.windows_len);
    xcb_ewmh_get_windows_reply_wipe(&reply);
    return windows;
  }

  bool IsOwn(xcb_window_t window) {
    const auto request = xcb_ewmh_get_wm_pid(&rules_, window);
    std::uint32_t process = 0;
    return xcb_ewmh_get_wm_pid_reply(&rules_, request, &process, nullptr) != 0 &&
           process == static_cast<std::uint32_t>(::getpid());
  }

  /// Empty also when the window is gone by now.
  std::string Title(xcb_window_t window) const {
    const std::string title = Text(window, rules_._NET_WM_NAME);
    return title.empty() ? Text(window, XCB_ATOM_WM_NAME) : title;
  }

  /// Up to its first NUL: some programs store one at the end.
  std::string Text(xcb_window_t window, xcb_atom_t property) const {
    constexpr std::uint32_t kLongest = 0x10000;  // in units of four bytes
    const auto request =
        xcb_get_property(connection_, 0, window, property, XCB_ATOM_ANY, 0, kLongest);
    auto* reply = xcb_get_property_reply(connection_, request, nullptr);
    std::string text;
    if (reply != nullptr && reply->format == 8) {
      const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply));
      text.assign(bytes, ::strnlen(bytes, reply->value_len));
    }
    std::free(reply);
    return text;
  }

  xcb_connection_t* connection_;
  xcb_ewmh_connection_t rules_ = {};
  bool isReady_ = false;
};

}  // namespace

bool ActivateWindowByTitle(const std::string& title) {
  // An X server that is to be started on demand and cannot start never answers. The look
  // therefore happens beside the editor, and one that takes too long is left to itself.
  constexpr std::chrono::seconds kPatience(2);
  std::packaged_task<bool()> look([title] { return Desktop().Activate(title); });
  std::future<bool> found = look.get_future();
  std::thread(std::move(look)).detach();
  return found.wait_for(kPatience) == std::future_status::ready && found.get();
}

}  // namespace vesmora
