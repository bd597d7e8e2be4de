// Real processes: scripts stand in for the game and for Wine.
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "platform/programs.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

using testing::HasSubstr;

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
    for (int i = 0; i < 500 && !std::filesystem::exists(result_); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
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
  const std::string report = "pwd; readlink /proc/$$/fd/0 /proc/$$/fd/2; echo $@";
  const std::string place = "\n" + game_.substr(0, game_.size() - 1) + "\n/dev/null\n/dev/null\n";
  PutScript(exe_, "echo exe; " + report);
  EXPECT_EQ(programs_->Start(exe_, game_), "");
  EXPECT_EQ(TakeResult(), "exe" + place + "\n") << "without Wine the file itself has its chance";
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
  for (int i = 0; i < 500 && !std::filesystem::exists(folder_ / "up"); ++i) ::usleep(10'000);
  ::kill(-editor, SIGHUP);
  ASSERT_EQ(::waitpid(editor, nullptr, 0), editor);
  std::ofstream(go) << "";
  EXPECT_EQ(TakeResult(), "alive\n");
  EXPECT_EQ(programs_->Start(exe_, game_), "");
  EXPECT_EQ(TakeResult(), "alive\n");
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD) << "no child of ours, dead or alive";
}

}  // namespace
}  // namespace vesmora
