// What only these systems have: links, permission bits, pipes, and processes to kill.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <functional>

#include "support/durable_write.h"

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

INSTANTIATE_TEST_SUITE_P(LinkWays, DurableWrite,
                         testing::Values(Way{"WriteThroughLink", false, true, true},
                                         Way{"WriteThroughDanglingLink", false, false, true}),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_P(DurableWrite, FileSizeLimitedByTheSystem) {
  for (const std::size_t limit : {0U, 1U, 399U, 400U, 401U, 700U, 999U, 1000U, 1001U}) {
    SCOPED_TRACE(limit);
    Prepare();
    const int code = ExitCodeOf([&] {
      FileCalls& system = SystemFileCalls();
      const rlimit fileSize = {limit, limit};
      ::setrlimit(RLIMIT_FSIZE, &fileSize);
      return Run(system).Ok() ? 1 : 0;
    });
    EXPECT_EQ(code, limit >= kNew.size() ? 1 : 0);
    EXPECT_EQ(Get(real_), limit >= kNew.size() ? std::optional(kNew) : Old());
    EXPECT_TRUE(NothingLeftBehind());
  }
}

TEST_P(DurableWrite, KilledBeforeEveryCall) {
  bool wasNew = false;
  int n = 1;
  for (int code = 1; code != 0; ++n) {
    Prepare();
    code = ExitCodeOf([&] {
      FaultyFileCalls calls;
      calls.ExitBefore(n, 1);
      return Run(calls).Ok() ? 0 : 2;
    });
    ASSERT_TRUE(code == 0 || code == 1) << code;
    const bool isNew = Get(real_) == kNew;
    EXPECT_TRUE(isNew || Get(real_) == Old()) << n;
    EXPECT_TRUE(isNew || !wasNew) << n;  // one moment at which it changes
    wasNew = isNew;
  }
  EXPECT_TRUE(wasNew);
  EXPECT_GT(n, 10);
}

TEST_P(DurableWrite, PermissionsAreKeptAndProtectionRespected) {
  const mode_t mask = ::umask(027);
  for (const unsigned mode : {0600U, 0640U, 0664U, 0755U}) {
    Prepare();
    const std::string model = GetParam().hasOld ? real_ : folder_ / "source";
    ASSERT_EQ(::chmod(model.c_str(), mode), 0);
    ASSERT_TRUE(Run(SystemFileCalls()).Ok());
    const bool keeps = GetParam().hasOld || GetParam().copies;
    EXPECT_EQ(ModeOf(real_), keeps ? mode : 0640U);
    FaultyFileCalls calls;
    calls.FailAll("KeepAccess", EPERM);
    ASSERT_TRUE(Run(calls).Ok());
    EXPECT_EQ(ModeOf(real_), 0600U);  // when in doubt, closed to others
  }
  ::umask(mask);
  if (!GetParam().hasOld || ::geteuid() != 0) return;

  // As a user whose folder it is, but who may not write to the file.
  Prepare();
  fs::permissions(folder_.Path(), fs::perms::all);
  fs::permissions(folder_ / "sub", fs::perms::all);
  const int code = ExitCodeOf([&] {
    if (::setgid(65534) != 0 || ::setuid(65534) != 0) return 2;
    return Run(SystemFileCalls()).reason == std::strerror(EACCES) ? 0 : 1;
  });
  EXPECT_EQ(code, 0);
  EXPECT_EQ(Get(real_), kOld);
  EXPECT_TRUE(NothingLeftBehind());
}

TEST(Files, PipesDevicesAndLoopsAreRefusedAtOnce) {
  const ScratchFolder folder;
  FileCalls& calls = SystemFileCalls();
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("loop", folder / "loop");
  for (const std::string& path : {pipe, folder / "loop"}) {
    SCOPED_TRACE(path);
    EXPECT_FALSE(ReadFile(calls, path, 10).status.reason.empty());
    EXPECT_FALSE(WriteFileDurably(calls, path, kNew).reason.empty());
    EXPECT_FALSE(CopyFileDurably(calls, path, folder / "copy").reason.empty());
    EXPECT_FALSE(FileExists(calls, folder / "copy"));
  }
  // Devices are only read here: a fault in the code must not cost the machine one.
  EXPECT_FALSE(ReadFile(calls, "/dev/zero", 10).status.Ok());
  EXPECT_FALSE(WriteFileInPlace(calls, pipe, kNew).Ok());
  EXPECT_EQ(CopyFileDurably(calls, folder / "none", pipe).failure, FileFailure::kMissing);
  EXPECT_TRUE(fs::is_fifo(pipe) && fs::is_symlink(folder / "loop"));
}

TEST(Files, SymbolicLinksAreSeenThroughOrRefused) {
  const ScratchFolder folder;
  Put(folder / "map", kOld);
  fs::create_symlink("map", folder / "link");
  fs::create_symlink("missing", folder / "dangling");
  FaultyFileCalls calls;
  EXPECT_TRUE(CopyFileDurably(calls, folder / "map", folder / "link").Ok());
  EXPECT_TRUE(std::ranges::all_of(calls.Names(), [](auto& call) { return call == "Info"; }));
  EXPECT_FALSE(WriteFileInPlace(calls, folder / "link", kOld).Ok());
  const FolderListing listing = ListFiles(SystemFileCalls(), folder.Path());
  EXPECT_EQ(listing.names, (std::vector<std::string>{"link", "map"}));
}

}  // namespace
}  // namespace vesmora
