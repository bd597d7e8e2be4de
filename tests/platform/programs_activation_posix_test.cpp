// Real windows on a virtual display with a real window manager.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/programs.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

bool Soon(const std::function<bool()>& condition) {
  for (int i = 0; i < 500; ++i) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

/// A program of the system's, silent, ended with this object.
class Process {
 public:
  explicit Process(std::vector<const char*> arguments) : number_(::fork()) {
    if (number_ != 0) return;
    const int nothing = ::open("/dev/null", O_WRONLY);
    for (const int handle : {STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, handle);
    arguments.push_back(nullptr);
    ::execvp(arguments[0], const_cast<char* const*>(arguments.data()));
    ::_exit(127);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() {
    ::kill(number_, SIGTERM);
    ::waitpid(number_, nullptr, 0);
  }

 private:
  pid_t number_;
};

/// Opens windows to be found, and sees what becomes of them.
class Client {
 public:
  static constexpr std::uint32_t kNormal = 1;
  static constexpr std::uint32_t kIconic = 3;

  Client() = default;
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() { xcb_disconnect(connection_); }

  xcb_atom_t Atom(const std::string& name) const {
    const auto length = static_cast<std::uint16_t>(name.size());
    const auto request = xcb_intern_atom(connection_, 0, length, name.c_str());
    auto* reply = xcb_intern_atom_reply(connection_, request, nullptr);
    const xcb_atom_t atom = reply->atom;
    std::free(reply);
    return atom;
  }
  std::uint32_t Number(xcb_window_t window, const std::string& property) const {
    const auto request = xcb_get_property(connection_, 0, window, Atom(property), 0, 0, 1);
    auto* reply = xcb_get_property_reply(connection_, request, nullptr);
    const bool isThere = reply != nullptr && reply->value_len == 1;
    const auto number = isThere ? *static_cast<std::uint32_t*>(xcb_get_property_value(reply)) : 0;
    std::free(reply);
    return number;
  }
  bool Becomes(xcb_window_t window, std::uint32_t state) const {
    return Soon([&] { return Number(window, "WM_STATE") == state; });
  }
  bool BecomesActive(xcb_window_t window) const {
    return Soon([&] { return Number(root_, "_NET_ACTIVE_WINDOW") == window; });
  }
  xcb_window_t Open(const std::string& title, const std::string& titleProperty = "_NET_WM_NAME",
                    std::uint32_t process = 0) const {
    const xcb_window_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, window, root_, 50, 50, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0, nullptr);
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, Atom(titleProperty),
                        Atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(title.size()),
                        title.c_str());
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, Atom("_NET_WM_PID"),
                        XCB_ATOM_CARDINAL, 32, 1, &process);
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
  }
  void Minimise(xcb_window_t window) const {
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = Atom("WM_CHANGE_STATE");
    message.data.data32[0] = kIconic;
    xcb_send_event(connection_, 0, root_, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    EXPECT_TRUE(Becomes(window, kIconic));
  }
  void Close(xcb_window_t window) const {
    xcb_destroy_window(connection_, window);
    xcb_flush(connection_);
  }

 private:
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  xcb_window_t root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
};

TEST(ActivationTest, TheWindowOfThatTitleComesToTheFront) {
  const ScratchFolder home;
  ::setenv("HOME", home.Path().c_str(), 1);
  std::array<int, 2> channel = {};
  ASSERT_EQ(::pipe(channel.data()), 0);
  const Process server({"Xvfb", "-displayfd", std::to_string(channel[1]).c_str()});
  ::close(channel[1]);
  std::string display = ":";
  for (char c = 0; ::read(channel[0], &c, 1) == 1 && c != '\n';) display += c;
  ASSERT_NE(display, ":") << "Xvfb does not start";
  ::setenv("DISPLAY", display.c_str(), 1);
  const Client client;
  const auto programs = SystemPrograms();
  const xcb_window_t maker = client.Open("Soldat Map Maker");
  EXPECT_FALSE(programs->ActivateWindow("Soldat Map Maker")) << "nobody manages the windows";
  const Process manager({"openbox"});
  ASSERT_TRUE(client.Becomes(maker, Client::kNormal)) << "openbox does not start";

  EXPECT_FALSE(programs->ActivateWindow("Soldat"));
  const xcb_window_t old = client.Open("Soldat", "WM_NAME");
  EXPECT_TRUE(client.BecomesActive(old));
  const auto own = static_cast<std::uint32_t>(::getpid());
  EXPECT_TRUE(client.BecomesActive(client.Open("Own", "_NET_WM_NAME", own)));
  EXPECT_FALSE(programs->ActivateWindow("Own"));
  EXPECT_TRUE(programs->ActivateWindow("Soldat Map Maker")) << "covered";
  EXPECT_TRUE(client.BecomesActive(maker));
  client.Minimise(old);
  EXPECT_TRUE(programs->ActivateWindow("Soldat"));
  EXPECT_TRUE(client.BecomesActive(old) && client.Becomes(old, Client::kNormal));

  // Windows may vanish while they are looked at.
  std::thread others([] {
    const Client coming;
    for (int i = 0; i < 50; ++i) {
      const xcb_window_t window = coming.Open("Brief");
      coming.Becomes(window, Client::kNormal);
      coming.Close(window);
    }
  });
  std::array<int, 2> results = {};
  const auto both = [&] { return results[0] > 9 && results[1] > 9; };
  for (int i = 0; i < 5000 && !both(); ++i) ++results[programs->ActivateWindow("Brief") ? 1 : 0];
  others.join();
  EXPECT_TRUE(both()) << results[0] << " missed, " << results[1] << " found";
}

TEST(ActivationTest, ADisplayThatIsMissingOrNeverAnswersIsGivenUp) {
  ::unsetenv("DISPLAY");
  EXPECT_FALSE(SystemPrograms()->ActivateWindow("Soldat"));
  const std::string display = ":" + std::to_string(100000 + ::getpid());
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  const std::string path = "/tmp/.X11-unix/X" + display.substr(1);
  path.copy(address.sun_path + 1, sizeof(address.sun_path) - 1);  // a name without a file
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + path.size());
  const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), length), 0);
  ASSERT_EQ(::listen(listener, 1), 0);
  ::setenv("DISPLAY", display.c_str(), 1);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(SystemPrograms()->ActivateWindow("Soldat"));
  const auto taken = std::chrono::steady_clock::now() - start;
  EXPECT_TRUE(taken > std::chrono::seconds(1) && taken < std::chrono::seconds(10));
  ::close(listener);
}

}  // namespace
}  // namespace vesmora
