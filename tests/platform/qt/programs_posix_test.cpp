// Real processes: scripts stand in for the game and for Wine. And real windows, on a virtual
// display with a window manager.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb_ewmh.h>

#include <QProcess>
#include <QThread>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>

#include "platform/file_calls.h"
#include "platform/programs.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

using testing::HasSubstr;

bool Soon(const std::function<bool()>& condition) {
  for (int i = 0; i < 500 && !condition(); ++i) QThread::msleep(10);
  return condition();
}

class ProgramsTest : public testing::Test {
 protected:
  ProgramsTest() {
    std::filesystem::create_directories(game_);
    ::setenv("PATH", (":relative:" + folder_.Path()).c_str(), 1);
  }
  ~ProgramsTest() override { ::setenv("PATH", path_.c_str(), 1); }

  /// A program that puts what the commands print into the file `result_`, all at once.
  void PutScript(const std::string& path, const std::string& commands) {
    std::ofstream(path) << "#!/bin/sh\nPATH=/usr/bin:/bin\n{ " << commands << "; } >'" << result_
                        << ".part'; mv '" << result_ << ".part' '" << result_ << "'\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
  }
  std::string TakeResult() {
    Soon([&] { return std::filesystem::exists(result_); });
    std::stringstream text;
    text << std::ifstream(result_).rdbuf();
    std::filesystem::remove(result_);
    return text.str();
  }

  ScratchFolder folder_;
  std::string game_ = folder_ / "Games and more/";
  std::string exe_ = game_ + "Soldat.ExE";
  std::string result_ = folder_ / "result";
  std::string path_ = std::getenv("PATH");
  std::unique_ptr<Programs> programs_ = SystemPrograms();
};

TEST_F(ProgramsTest, AWindowsProgramStartsThroughWineInItsFolder) {
  const std::string report =
      "pwd; readlink /proc/$$/fd/0 /proc/$$/fd/2; sh -c 'ulimit -c 0; kill -XFSZ $$'; echo $?; "
      "echo $@";
  const std::string place =
      "\n" + game_.substr(0, game_.size() - 1) + "\n/dev/null\n/dev/null\n153\n";
  SystemFileCalls();  // keeps a signal from ending the editor, but no other program
  PutScript(exe_, "echo exe; " + report);
  EXPECT_EQ(programs_->Start(exe_, game_), "");
  EXPECT_EQ(TakeResult(), "exe" + place + "\n") << "without Wine the file itself is tried";
  for (const std::string wine : {"wine64", "wine"}) {
    PutScript(folder_ / wine, "echo " + wine + "; " + report);
    EXPECT_EQ(programs_->Start(exe_, game_), "");
    EXPECT_EQ(TakeResult(), wine + place + exe_ + "\n");
  }
}

TEST_F(ProgramsTest, WhatCannotStartSaysWhy) {
  std::ofstream(exe_) << "MZ";
  EXPECT_THAT(programs_->Start(exe_, game_), HasSubstr("Wine is not installed"));
  std::filesystem::permissions(exe_, std::filesystem::perms::owner_all);
  EXPECT_THAT(programs_->Start(exe_, game_), HasSubstr("Wine is not installed"));
  PutScript(folder_ / "wine", "true");
  EXPECT_EQ(programs_->Start(exe_, folder_ / "none"), "No such file or directory.");
  EXPECT_EQ(programs_->Start(game_, game_), "Permission denied.");
}

/// The editor's whole process group is killed, as a closed terminal or session does.
TEST_F(ProgramsTest, AStartedProgramOutlivesTheEditorAndLeavesNoZombie) {
  std::filesystem::path go = folder_ / "go";
  PutScript(folder_ / "wine", "for i in $(seq 500); do touch " + folder_.Path() + "up; [ -e " +
                                  go.string() + " ] && break; sleep 0.02; done; echo alive");
  const pid_t editor = ::fork();
  if (editor == 0) {
    ::setpgid(0, 0);
    if (programs_->Start(exe_, game_).empty()) ::pause();
    ::_exit(1);
  }
  EXPECT_TRUE(Soon([&] { return std::filesystem::exists(folder_ / "up"); }));
  ::kill(-editor, SIGHUP);
  ASSERT_EQ(::waitpid(editor, nullptr, 0), editor);
  std::ofstream(go) << "";
  EXPECT_EQ(TakeResult(), "alive\n");
  EXPECT_EQ(programs_->Start(exe_, game_), "");
  EXPECT_EQ(TakeResult(), "alive\n");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD) << "no child of ours, dead or alive";
}

/// Opens windows to be found, and sees which one is in front.
class Client {
 public:
  Client() {
    xcb_ewmh_init_atoms_replies(&rules_, xcb_ewmh_init_atoms(connection_, &rules_), nullptr);
  }
  Client(const Client&) = delete;
  Client& operator=(const Client&) = delete;
  ~Client() {
    xcb_ewmh_connection_wipe(&rules_);
    xcb_disconnect(connection_);
  }

  bool BecomesActive(xcb_window_t window) {
    return Soon([&] {
      const auto request = xcb_ewmh_get_active_window(&rules_, 0);
      xcb_window_t active = XCB_WINDOW_NONE;
      xcb_ewmh_get_active_window_reply(&rules_, request, &active, nullptr);
      return active == window;
    });
  }
  xcb_window_t Open(const std::string& title, bool isOld = false, std::uint32_t process = 0) {
    const xcb_window_t window = xcb_generate_id(connection_);
    xcb_create_window(connection_, 0, window, rules_.screens[0]->root, 50, 50, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, 0, 0, nullptr);
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window,
                        isOld ? xcb_atom_t{XCB_ATOM_WM_NAME} : rules_._NET_WM_NAME,
                        rules_.UTF8_STRING, 8, static_cast<std::uint32_t>(title.size()),
                        title.c_str());
    xcb_ewmh_set_wm_pid(&rules_, window, process);
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
    return window;
  }

 private:
  xcb_connection_t* connection_ = xcb_connect(nullptr, nullptr);
  xcb_ewmh_connection_t rules_ = {};
};

/// Ends with this object.
struct Process : QProcess {
  explicit Process(const QString& program, const QStringList& arguments = {}) {
    start(program, arguments);
  }
  ~Process() override {
    terminate();
    waitForFinished();
  }
};

TEST(ActivationTest, TheWindowOfThatTitleComesToTheFront) {
  const ScratchFolder home;
  ::setenv("HOME", home.Path().c_str(), 1);
  const auto programs = SystemPrograms();
  ::unsetenv("DISPLAY");
  EXPECT_FALSE(programs->ActivateWindow("Soldat"));
  Process server("Xvfb", {"-displayfd", "1"});
  ASSERT_TRUE(server.waitForReadyRead()) << "Xvfb does not start";
  ::setenv("DISPLAY", (":" + server.readAllStandardOutput().trimmed()).constData(), 1);
  Client client;
  const xcb_window_t maker = client.Open("Soldat Map Maker");
  EXPECT_FALSE(programs->ActivateWindow("Soldat Map Maker")) << "nobody manages the windows";
  const Process manager("openbox");
  const auto activate = [&] { return programs->ActivateWindow("Soldat Map Maker"); };
  ASSERT_TRUE(Soon(activate)) << "openbox does not start";

  EXPECT_FALSE(programs->ActivateWindow("Soldat"));
  const xcb_window_t old = client.Open("Soldat", true);
  EXPECT_TRUE(client.BecomesActive(old));
  const auto own = static_cast<std::uint32_t>(::getpid());
  EXPECT_TRUE(client.BecomesActive(client.Open("Own", false, own)));
  EXPECT_FALSE(programs->ActivateWindow("Own"));
  EXPECT_TRUE(activate()) << "covered";
  EXPECT_TRUE(client.BecomesActive(maker));
  EXPECT_TRUE(programs->ActivateWindow("Soldat"));
  EXPECT_TRUE(client.BecomesActive(old)) << "of an older program";
}

}  // namespace
}  // namespace vesmora
