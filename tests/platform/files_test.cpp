#include "platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <optional>

#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

namespace fs = std::filesystem;
using Lasting = FaultyFileCalls::Lasting;

std::vector<std::byte> Bytes(std::size_t size, unsigned seed) {
  std::vector<std::byte> bytes(size);
  for (std::byte& b : bytes) b = static_cast<std::byte>((seed = seed * 1103515245U + 12345U) >> 16);
  return bytes;
}

const std::vector<std::byte> kOld = Bytes(700, 1);
const std::vector<std::byte> kNew = Bytes(1000, 2);

void Put(const std::string& path, const std::vector<std::byte>& bytes) {
  fs::remove(path);
  ASSERT_TRUE(WriteFileInPlace(SystemFileCalls(), path, bytes).Ok());
}

std::optional<std::vector<std::byte>> Get(const std::string& path) {
  FileContents contents = ReadFile(SystemFileCalls(), path, 1U << 20U);
  if (!contents.status.Ok()) return std::nullopt;
  return contents.bytes;
}

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

/// The ways of replacing a file: written or copied, over an old one or none, by a link.
struct Way {
  const char* name;
  bool copies;
  bool hasOld;
  bool throughLink;
};

class DurableWrite : public testing::TestWithParam<Way> {
 protected:
  void Prepare() {
    fs::remove_all(folder_.Path());
    fs::create_directories(folder_ / "sub");
    Put(folder_ / "source", kNew);
    if (GetParam().hasOld) Put(real_, kOld);
    if (GetParam().throughLink) fs::create_symlink("sub/map", folder_ / "link");
  }

  FileStatus Run(FileCalls& calls) const {
    const std::string path = GetParam().throughLink ? folder_ / "link" : real_;
    if (GetParam().copies) return CopyFileDurably(calls, folder_ / "source", path);
    return WriteFileDurably(calls, path, kNew);
  }

  std::optional<std::vector<std::byte>> Old() const {
    return GetParam().hasOld ? std::optional(kOld) : std::nullopt;
  }

  /// The status and the file must tell the same story, whatever happened on the way.
  void ExpectOldOrNew(const FileStatus& status) const {
    EXPECT_EQ(Get(real_), status.Ok() ? std::optional(kNew) : Old());
    EXPECT_EQ(status.reason.empty(), status.Ok());
    EXPECT_EQ(Get(folder_ / "source"), kNew);
    EXPECT_EQ(fs::is_symlink(folder_ / "link"), GetParam().throughLink);
  }

  /// Whether the write must fail when call `n` does. Of the closes, only the one of the
  /// written file counts; a copy that cannot compare its files just copies.
  static bool IsNecessary(const std::vector<std::string>& names, int n) {
    const std::string& name = names[static_cast<std::size_t>(n) - 1];
    const bool copies = GetParam().copies;
    if (name == "Info") return !copies || n > 2;
    if (name == "Close") return std::count(names.begin(), names.begin() + n, name) == 1 + copies;
    return name != "KeepAccess" && name != "Link" && name != "Unlink";
  }

  bool NothingLeftBehind() const {
    const auto count = std::distance(fs::directory_iterator(folder_ / "sub"), {});
    return count == (fs::exists(real_) ? 1 : 0);
  }

  ScratchFolder folder_;
  const std::string real_ = folder_ / "sub/map";
};

INSTANTIATE_TEST_SUITE_P(Ways, DurableWrite,
                         testing::Values(Way{"WriteOverOld", false, true, false},
                                         Way{"WriteNew", false, false, false},
                                         Way{"WriteThroughLink", false, true, true},
                                         Way{"WriteThroughDanglingLink", false, false, true},
                                         Way{"CopyOverOld", true, true, false},
                                         Way{"CopyNew", true, false, false}),
                         [](const auto& way) { return std::string(way.param.name); });

TEST_P(DurableWrite, AnyFailingCallLeavesTheOldOrTheNewFile) {
  for (const Lasting lasting : {Lasting::kOnce, Lasting::kForGood}) {
    for (const int error : {EIO, ENOSPC, EACCES}) {
      for (int n = 1;; ++n) {
        Prepare();
        FaultyFileCalls calls;
        calls.LimitTransfer(400);
        calls.FailCall(n, error, lasting);
        const FileStatus status = Run(calls);
        if (calls.Count() < n) {
          EXPECT_TRUE(status.Ok());
          EXPECT_GT(n, 12);
          break;
        }
        const std::string failed = calls.Names()[static_cast<std::size_t>(n) - 1];
        SCOPED_TRACE(failed + " as call " + std::to_string(n) + ": " + std::strerror(error));
        ExpectOldOrNew(status);
        EXPECT_EQ(status.reason, status.Ok() ? "" : std::strerror(error));
        if (lasting == Lasting::kForGood) continue;
        EXPECT_TRUE(NothingLeftBehind() || failed == "Unlink");
        EXPECT_EQ(status.Ok(), !IsNecessary(calls.Names(), n)) << status.reason;
      }
    }
  }
}

TEST_P(DurableWrite, DiskFullAtEveryByte) {
  for (const std::size_t limit : {0U, 1U, 399U, 400U, 401U, 700U, 999U, 1000U, 1001U}) {
    SCOPED_TRACE(limit);
    Prepare();
    FaultyFileCalls calls;
    calls.LimitTransfer(400);
    calls.LimitFileSize(limit);
    const FileStatus status = Run(calls);
    EXPECT_EQ(status.Ok(), limit >= kNew.size());
    ExpectOldOrNew(status);
    EXPECT_TRUE(NothingLeftBehind());

    Prepare();  // the same with a limit of the system's own
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

TEST_P(DurableWrite, DisksThatLieOrCannotSyncFolders) {
  for (const std::size_t offset : {0U, 500U, 999U}) {
    Prepare();
    FaultyFileCalls calls;
    calls.SpoilWrittenByte(offset);
    const FileStatus status = Run(calls);
    EXPECT_FALSE(status.Ok());
    ExpectOldOrNew(status);
    EXPECT_TRUE(NothingLeftBehind());
  }
  for (const int error : {EINVAL, ENOTSUP, EIO}) {
    for (const bool canLink : {true, false}) {
      Prepare();
      FaultyFileCalls calls;
      calls.FailAll("SyncFolder", error);
      if (!canLink) calls.FailAll("Link", EPERM);
      const FileStatus status = Run(calls);
      EXPECT_EQ(status.Ok(), error != EIO || (GetParam().hasOld && !canLink));
      ExpectOldOrNew(status);
      EXPECT_TRUE(NothingLeftBehind());
    }
  }
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

TEST(Files, WhatIsNoRegularFileIsRefusedAtOnce) {
  const ScratchFolder folder;
  FileCalls& calls = SystemFileCalls();
  const std::string pipe = folder / "pipe";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  fs::create_symlink("loop", folder / "loop");
  for (const std::string& path : {folder.Path(), pipe, folder / "loop", std::string()}) {
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
  EXPECT_EQ(ReadFile(calls, folder / "none", 10).status.failure, FileFailure::kMissing);
  EXPECT_EQ(CopyFileDurably(calls, folder / "none", pipe).failure, FileFailure::kMissing);
  EXPECT_EQ(DeleteFile(calls, folder / "none").failure, FileFailure::kMissing);
  EXPECT_FALSE(DeleteFile(calls, folder.Path()).Ok());
  EXPECT_EQ(WriteFileDurably(calls, folder / "none/map", kNew).failure, FileFailure::kError);
}

TEST(Files, ReadingStopsAtTheLimitAndTellsTheWholeSize) {
  const ScratchFolder folder;
  Put(folder / "map", kNew);
  for (const std::size_t limit : {0U, 1U, 999U, 1000U, 1001U, 1U << 30U}) {
    FaultyFileCalls calls;
    calls.LimitTransfer(7);
    calls.FailCall(4, EINTR);
    const FileContents contents = ReadFile(calls, folder / "map", limit);
    EXPECT_TRUE(contents.status.Ok());
    EXPECT_EQ(contents.size, kNew.size());
    const std::size_t expected = std::min(limit, kNew.size());
    ASSERT_EQ(contents.bytes.size(), expected);
    EXPECT_TRUE(std::equal(contents.bytes.begin(), contents.bytes.end(), kNew.begin()));
  }
}

TEST(Files, InPlaceKeepsTheTailAndReportsEveryFailure) {
  const ScratchFolder folder;
  const std::string path = folder / "undo";
  Put(path, kNew);
  FaultyFileCalls calls;
  EXPECT_TRUE(WriteFileInPlace(calls, path, kOld).Ok());
  EXPECT_EQ(calls.Names(), (std::vector<std::string>{"OpenInPlace", "Write", "Close"}));
  std::vector<std::byte> expected = kNew;
  std::ranges::copy(kOld, expected.begin());
  EXPECT_EQ(Get(path), expected);
  for (const int n : {1, 2, 3}) {
    FaultyFileCalls failing;
    failing.FailCall(n, EIO);
    EXPECT_EQ(WriteFileInPlace(failing, path, kOld).reason, std::strerror(EIO)) << n;
  }
  FaultyFileCalls full;
  full.LimitFileSize(699);
  EXPECT_EQ(WriteFileInPlace(full, path, kOld).reason, std::strerror(ENOSPC));
  fs::create_symlink("undo", folder / "planted");
  EXPECT_FALSE(WriteFileInPlace(calls, folder / "planted", kOld).Ok());
}

TEST(Files, AFileIsNeverCopiedOntoItself) {
  const ScratchFolder folder;
  Put(folder / "map", kOld);
  fs::create_symlink("map", folder / "soft");
  fs::create_hard_link(folder / "map", folder / "hard");
  Put(folder / "other", kOld);
  for (const char* name : {"map", "soft", "hard", "./map"}) {
    FaultyFileCalls calls;
    EXPECT_TRUE(SameFile(calls, folder / "map", folder / name));
    EXPECT_TRUE(CopyFileDurably(calls, folder / "map", folder / name).Ok());
    EXPECT_TRUE(std::ranges::all_of(calls.Names(), [](auto& call) { return call == "Info"; }));
  }
  EXPECT_FALSE(SameFile(SystemFileCalls(), folder / "map", folder / "other"));
  EXPECT_FALSE(SameFile(SystemFileCalls(), folder / "none", folder / "none"));
}

TEST(Files, ListsRegularFilesSorted) {
  const ScratchFolder folder;
  for (const char* name : {"b.pre", "B.pre", "a.pre", ".c"}) Put(folder / name, kOld);
  fs::create_directory(folder / "sub");
  fs::create_symlink("missing", folder / "dangling");
  const FolderListing listing = ListFiles(SystemFileCalls(), folder.Path());
  EXPECT_TRUE(listing.status.Ok());
  EXPECT_EQ(listing.names, (std::vector<std::string>{".c", "B.pre", "a.pre", "b.pre"}));
  EXPECT_EQ(ListFiles(SystemFileCalls(), folder / "none").status.failure, FileFailure::kMissing);
}

}  // namespace
}  // namespace vesmora
