#include "platform/files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "support/file_contents.h"

namespace vesmora {
namespace {

using Lasting = FaultyFileCalls::Lasting;

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

  /// The status and the file must tell the same story, whatever happened on the way.
  void ExpectOldOrNew(const FileStatus& status) const {
    const auto old = GetParam().hasOld ? std::optional(kOld) : std::nullopt;
    EXPECT_EQ(Get(real_), status.Ok() ? std::optional(kNew) : old);
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
                                         Way{"CopyOverOld", true, true, false},
                                         Way{"CopyNew", true, false, false}),
                         [](const auto& way) { return std::string(way.param.name); });
#ifndef _WIN32  // where only administrators make links
INSTANTIATE_TEST_SUITE_P(LinkWays, DurableWrite,
                         testing::Values(Way{"WriteThroughLink", false, true, true},
                                         Way{"WriteThroughDanglingLink", false, false, true}),
                         [](const auto& way) { return std::string(way.param.name); });
#endif

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
          const auto at = [&](const char* name) {
            return std::ranges::find(calls.Names(), name) - calls.Names().begin();
          };
          EXPECT_TRUE(at("Sync") < at("Rename") && at("Rename") < at("SyncFolder"));
          EXPECT_LT(at("SyncFolder"), calls.Count());
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

TEST_P(DurableWrite, DisksThatAreFullLieOrCannotSyncFolders) {
  for (const std::size_t offset : {0U, 1U, 400U, 999U, 1000U}) {
    for (const bool isFull : {true, false}) {
      Prepare();
      FaultyFileCalls calls;
      calls.LimitTransfer(400);
      isFull ? calls.LimitFileSize(offset) : calls.SpoilWrittenByte(offset);
      const FileStatus status = Run(calls);
      EXPECT_EQ(status.Ok(), offset >= kNew.size());
      ExpectOldOrNew(status);
      EXPECT_TRUE(NothingLeftBehind());
    }
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

TEST(Files, MissingFilesAreToldFromOtherFailures) {
  const ScratchFolder folder;
  FileCalls& calls = SystemFileCalls();
  const std::string none = folder / "none";
  EXPECT_EQ(ReadFile(calls, none, 10).status.failure, FileFailure::kMissing);
  EXPECT_EQ(CopyFileDurably(calls, none, folder / "copy").failure, FileFailure::kMissing);
  EXPECT_EQ(DeleteFile(calls, none).failure, FileFailure::kMissing);
  EXPECT_EQ(ListFiles(calls, none).status.failure, FileFailure::kMissing);
  EXPECT_EQ(WriteFileDurably(calls, folder / "none/map", kNew).failure, FileFailure::kError);
  EXPECT_FALSE(DeleteFile(calls, folder.Path()).Ok());
}

TEST(Files, ReadingStopsAtTheLimitAndInPlaceKeepsTheTail) {
  const ScratchFolder folder;
  const std::string path = folder / "undo";
  Put(path, kNew);
  for (const std::size_t limit : {0U, 999U, 1001U}) {
    FaultyFileCalls calls;
    calls.LimitTransfer(7);
    const FileContents contents = ReadFile(calls, path, limit);
    EXPECT_EQ(contents.size, kNew.size()) << contents.status.reason;
    EXPECT_EQ(contents.bytes.size(), std::min(limit, kNew.size()));
    EXPECT_TRUE(std::equal(contents.bytes.begin(), contents.bytes.end(), kNew.begin()));
  }
  for (const int n : {1, 2, 3, 4}) {
    FaultyFileCalls calls;
    calls.FailCall(n, EIO);
    EXPECT_EQ(WriteFileInPlace(calls, path, kOld).reason, n < 4 ? std::strerror(EIO) : "");
  }
  std::vector<std::byte> expected = kNew;
  std::ranges::copy(kOld, expected.begin());
  EXPECT_EQ(Get(path), expected);
}

TEST(Files, FilesAreListedInOrderAndNeverCopiedOntoThemselves) {
  const ScratchFolder folder;
  Put(folder / "map", kOld);
  Put(folder / "other", kOld);
  fs::create_hard_link(folder / "map", folder / "hard");
  FaultyFileCalls unsorted;
  EXPECT_EQ(ListFiles(unsorted, folder.Path()).names,
            (std::vector<std::string>{"hard", "map", "other"}));
  for (const char* name : {"hard", "./map"}) {
    FaultyFileCalls calls;
    EXPECT_TRUE(CopyFileDurably(calls, folder / "map", folder / name).Ok());
    EXPECT_TRUE(std::ranges::all_of(calls.Names(), [](auto& call) { return call == "Info"; }));
  }
  EXPECT_FALSE(SameFile(SystemFileCalls(), folder / "map", folder / "other"));
  EXPECT_FALSE(SameFile(SystemFileCalls(), folder / "none", folder / "none"));
}

}  // namespace
}  // namespace vesmora
