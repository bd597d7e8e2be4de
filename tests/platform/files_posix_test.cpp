// What only these systems have: links, permission bits, pipes and terminals, and a shared temporary
// folder.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "platform/console.h"
#include "platform/temp_folder.h"
#include "platform/temporary_name.h"
#include "support/file_contents.h"

namespace vesmora {
namespace {

unsigned ModeOf(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

/// Runs `work` in a child process and returns its exit code, or -1 after a signal.
int ExitCodeOf(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work());
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST(Files, PermissionsAreKept) {
  const ScratchFolder folder;
  const std::string source = folder / "source";
  const std::string path = folder / "map";
  const mode_t mask = ::umask(027);
  for (const unsigned mode : {0600U, 0640U, 0664U, 0755U}) {
    for (const bool copies : {true, false}) {
      for (const bool hasOld : {true, false}) {
        Put(source, kNew);
        Put(path, kOld);
        ASSERT_EQ(::chmod((hasOld ? path : source).c_str(), mode), 0);
        if (!hasOld) fs::remove(path);
        FaultyFileCalls calls;
        const auto run = [&] {
          return copies ? CopyFileDurably(calls, source, path)
                        : WriteFileDurably(calls, path, kNew);
        };
        ASSERT_TRUE(run().Ok());
        EXPECT_EQ(ModeOf(path), hasOld || copies ? mode : 0640U);
        calls.FailAll("KeepAccess", EPERM);
        ASSERT_TRUE(run().Ok());
        EXPECT_EQ(ModeOf(path), 0600U) << "when in doubt, closed to others";
      }
    }
  }
  ::umask(mask);
}

/// As a user whose folder it is, but who may not write to the file.
TEST(Files, ProtectionIsRespected) {
  const ScratchFolder folder;
  if (::geteuid() != 0) GTEST_SKIP() << "only root can become another user";
  Put(folder / "map", kOld);
  fs::permissions(folder.Path(), fs::perms::all);
  EXPECT_EQ(ExitCodeOf([&] {
              if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 2;
              const FileStatus status = WriteFileDurably(SystemFileCalls(), folder / "map", kNew);
              return status.reason == std::strerror(EACCES) ? 0 : 1;
            }),
            0);
  EXPECT_EQ(Get(folder / "map"), kOld);
}

TEST(Files, WhatIsNoRegularFileIsRefusedAtOnce) {
  const ScratchFolder folder;
  FileCalls& calls = SystemFileCalls();
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("loop", folder / "loop");
  for (const std::string& path : {pipe, folder / "loop", folder.Path(), std::string()}) {
    SCOPED_TRACE(path);
    EXPECT_FALSE(ReadFile(calls, path, 10).status.reason.empty());
    EXPECT_FALSE(WriteFileDurably(calls, path, kNew).reason.empty());
    EXPECT_FALSE(CopyFileDurably(calls, path, folder / "copy").reason.empty());
    EXPECT_FALSE(FileExists(calls, folder / "copy"));
  }
  // Devices are only read here: a fault in the code must not cost the machine one.
  EXPECT_FALSE(ReadFile(calls, "/dev/zero", 10).status.Ok());
  EXPECT_FALSE(WriteFileInPlace(calls, pipe, kNew).Ok());
  EXPECT_TRUE(fs::is_fifo(pipe) && fs::is_symlink(folder / "loop"));
}

TEST(Files, SymbolicLinksAreSeenThroughOrRefused) {
  const ScratchFolder folder;
  Put(folder / "map", kOld);
  fs::create_symlink("map", folder / "link");
  fs::create_symlink("missing", folder / "dangling");
  EXPECT_TRUE(SameFile(SystemFileCalls(), folder / "map", folder / "link"));
  EXPECT_FALSE(WriteFileInPlace(SystemFileCalls(), folder / "link", kOld).Ok());
  Put(folder / "Z", kOld);
  const FolderListing listing = ListFiles(SystemFileCalls(), folder.Path());
  EXPECT_EQ(listing.names, (std::vector<std::string>{"Z", "link", "map"})) << "sorted";
}

/// In a process of its own: what comes late and cut off by signals is read to the limit.
TEST(Console, ReadsAndWritesTheStandardStreams) {
  const ScratchFolder folder;
  const std::vector<std::byte> sent = SomeBytes(200000, 3);
  const std::vector<std::byte> first(sent.begin(), sent.end() - 1);
  std::array<int, 2> pipe = {};
  ASSERT_EQ(::pipe(pipe.data()), 0);
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_EQ(::grantpt(terminal) + ::unlockpt(terminal), 0);
  const pid_t writer = ::fork();
  if (writer == 0) {
    ::usleep(30000);
    ::_exit(::write(pipe[1], sent.data(), sent.size()) == std::ssize(sent) ? 0 : 1);
  }
  EXPECT_EQ(
      ExitCodeOf([&] {
        ::close(pipe[1]);
        ::dup2(pipe[0], STDIN_FILENO);
        ::dup2(::open((folder / "out").c_str(), O_WRONLY | O_CREAT, 0600), STDOUT_FILENO);
        ::dup2(::open(::ptsname(terminal), O_RDWR | O_NOCTTY), STDERR_FILENO);
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, nullptr);
        const itimerval every{{0, 3000}, {0, 3000}};
        ::setitimer(ITIMER_REAL, &every, nullptr);
        Console& console = SystemConsole();
        const FileContents read = console.ReadInput(first.size());
        ::setenv("TERM", "xterm", 1);
        const bool isSeen = console.ErrorIsTerminal() && !console.OutputIsTerminal();
        ::setenv("TERM", "dumb", 1);
        console.Tell("told\n");
        const bool isRead = read.status.Ok() && read.bytes == first;
        return isRead && isSeen && !console.ErrorIsTerminal() && console.Write(read.bytes).Ok() ? 0
                                                                                                : 1;
      }),
      0);
  EXPECT_EQ(Get(folder / "out"), first);
  std::array<char, 5> told = {};
  EXPECT_EQ(::read(terminal, told.data(), told.size()), 5);
  EXPECT_EQ(std::string_view(told.data(), 4), "told");
  ::close(terminal);
  ::close(pipe[0]);
  ::close(pipe[1]);
  ::waitpid(writer, nullptr, 0);
}

class TempFolder : public testing::Test {
 protected:
  void SetUp() override { ::setenv("TMPDIR", shared_.Path().c_str(), 1); }
  void TearDown() override {
    hadBefore_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", hadBefore_.c_str(), 1);
  }

  /// Expects a folder that is real, this user's and closed to others.
  std::string Expected() {
    const auto [path, problem] = PrivateTempFolder(SystemFileCalls(), shared_ / "last/");
    EXPECT_EQ(problem, "");
    EXPECT_TRUE(path.starts_with(shared_.Path()) && path.ends_with('/')) << path;
    struct stat info = {};
    EXPECT_EQ(::lstat(path.substr(0, path.size() - 1).c_str(), &info), 0);
    EXPECT_EQ(info.st_mode, S_IFDIR | 0700U);
    EXPECT_EQ(info.st_uid, ::geteuid());
    return path;
  }

  const std::string hadBefore_ = ::getenv("TMPDIR") != nullptr ? ::getenv("TMPDIR") : "";
  const ScratchFolder shared_;
  const std::string usual_ = shared_ / ("vesmora-" + std::to_string(::geteuid()));
};

TEST_F(TempFolder, IsTheSameEachTimeAndClosedToOthers) {
  EXPECT_EQ(Expected(), usual_ + "/");
  for (const unsigned mode : {0755U, 0770U, 0777U, 0500U, 0U}) {
    ASSERT_EQ(::chmod(usual_.c_str(), mode), 0);
    EXPECT_EQ(Expected(), usual_ + "/");
  }
}

TEST_F(TempFolder, AnotherIsUsedAndToldWhereNothingCanBeWritten) {
  FaultyFileCalls calls;
  calls.FailCall(5, ENOSPC);  // the first bytes in it
  const auto [path, problem] = PrivateTempFolder(calls, shared_ / "last/");
  EXPECT_TRUE(path.starts_with("/var/tmp/")) << path;
  EXPECT_EQ(problem, "The temporary folder '" + shared_.Path() +
                         "' cannot be used: " + std::strerror(ENOSPC));
  ::setenv("TMPDIR", (shared_ / "none").c_str(), 1);
  EXPECT_NE(PrivateTempFolder(SystemFileCalls(), shared_ / "last/").problem, "");
  calls.FailAll("MakeFolder", EROFS);
  EXPECT_EQ(PrivateTempFolder(calls, shared_ / "last/").path, "");
}

TEST_F(TempFolder, EachRunningEditorHoldsItsOwn) {
  FileCalls& calls = SystemFileCalls();
  std::vector<UndoFolder> held;
  for (const char* name : {"", "2/", "3/"}) {
    held.push_back(HoldUndoFolder(calls, shared_.Path()));
    EXPECT_EQ(held.back().path, shared_ / name);
    EXPECT_TRUE(IsStillHeld(calls, held.back()));
  }
  held[1] = {};
  auto abandoned = HoldAbandonedFolders(calls, shared_.Path(), held[2]);
  ASSERT_EQ(abandoned.size(), 1U);
  EXPECT_EQ(abandoned[0].path, shared_ / "2/");
  // Under the same name, but another one.
  fs::rename(shared_ / "3", shared_ / "away");
  EXPECT_FALSE(IsStillHeld(calls, held[2]));
  EXPECT_EQ(HoldUndoFolder(calls, shared_.Path()).path, shared_ / "3/");
  EXPECT_FALSE(IsStillHeld(calls, held[2]));
  EXPECT_EQ(HoldUndoFolder(calls, shared_ / "no/such/").path, "");
}

TEST_F(TempFolder, WhatOthersPlantedIsLeftAlone) {
  const std::string elsewhere = shared_ / "elsewhere";
  fs::create_directory(elsewhere);
  ASSERT_EQ(::chmod(elsewhere.c_str(), 0755), 0);
  fs::create_directory_symlink(elsewhere, usual_);
  EXPECT_NE(Expected(), usual_ + "/");
  EXPECT_EQ(Expected(), Expected()) << "the one with a rare name is found again";
  EXPECT_EQ(fs::status(elsewhere).permissions(), fs::perms{0755});
  EXPECT_TRUE(fs::is_symlink(usual_) && fs::is_empty(elsewhere));

  fs::remove(usual_);
  ASSERT_TRUE(WriteFileInPlace(SystemFileCalls(), usual_, kOld).Ok());
  EXPECT_NE(Expected(), usual_ + "/");
  fs::remove(usual_);
  fs::create_directory(usual_);
  ASSERT_EQ(::chmod(usual_.c_str(), 0777), 0);
  fs::create_symlink(elsewhere, usual_ + "/backup.pmp");
  for (int times = 0; times < 2; ++times) EXPECT_NE(Expected(), usual_ + "/");
  fs::remove(usual_ + "/backup.pmp");
  if (::geteuid() != 0) return;
  ASSERT_EQ(::chmod(usual_.c_str(), 0700) + ::chown(usual_.c_str(), 65534, 65534), 0);
  EXPECT_NE(Expected(), usual_ + "/");
}

}  // namespace
}  // namespace vesmora
