#include "platform/files.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#include "support/durable_write.h"

namespace vesmora {
namespace {

using Lasting = FaultyFileCalls::Lasting;

INSTANTIATE_TEST_SUITE_P(Ways, DurableWrite,
                         testing::Values(Way{"WriteOverOld", false, true, false},
                                         Way{"WriteNew", false, false, false},
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

TEST_P(DurableWrite, DiskFullAtEveryByte) {
  for (const std::size_t limit : {0U, 1U, 400U, 999U, 1000U}) {
    Prepare();
    FaultyFileCalls calls;
    calls.LimitTransfer(400);
    calls.LimitFileSize(limit);
    const FileStatus status = Run(calls);
    EXPECT_EQ(status.Ok(), limit >= kNew.size());
    ExpectOldOrNew(status);
    EXPECT_TRUE(NothingLeftBehind());
  }
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

TEST(Files, WhatIsNoRegularFileIsRefusedAtOnce) {
  const ScratchFolder folder;
  FileCalls& calls = SystemFileCalls();
  for (const std::string& path : {folder.Path(), std::string()}) {
    SCOPED_TRACE(path);
    EXPECT_FALSE(ReadFile(calls, path, 10).status.reason.empty());
    EXPECT_FALSE(WriteFileDurably(calls, path, kNew).reason.empty());
    EXPECT_FALSE(CopyFileDurably(calls, path, folder / "copy").reason.empty());
    EXPECT_FALSE(FileExists(calls, folder / "copy"));
  }
  EXPECT_EQ(ReadFile(calls, folder / "none", 10).status.failure, FileFailure::kMissing);
  EXPECT_EQ(CopyFileDurably(calls, folder / "none", folder / "copy").failure,
            FileFailure::kMissing);
  EXPECT_EQ(DeleteFile(calls, folder / "none").failure, FileFailure::kMissing);
  EXPECT_FALSE(DeleteFile(calls, folder.Path()).Ok());
  EXPECT_EQ(WriteFileDurably(calls, folder / "none/map", kNew).failure, FileFailure::kError);
}

TEST(Files, ReadingStopsAtTheLimitAndInPlaceKeepsTheTail) {
  const ScratchFolder folder;
  const std::string path = folder / "undo";
  Put(path, kNew);
  for (const std::size_t limit : {0U, 999U, 1000U, 1001U}) {
    FaultyFileCalls calls;
    calls.LimitTransfer(7);
    calls.FailCall(4, EINTR);
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
  FaultyFileCalls full;
  full.LimitFileSize(699);
  EXPECT_EQ(WriteFileInPlace(full, path, kOld).reason, std::strerror(ENOSPC));
}

TEST(Files, AFileIsNeverCopiedOntoItself) {
  const ScratchFolder folder;
  Put(folder / "map", kOld);
  fs::create_hard_link(folder / "map", folder / "hard");
  Put(folder / "other", kOld);
  for (const char* name : {"map", "hard", "./map"}) {
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
  for (const char* name : {"b.pre", "C.pre", "a.pre", ".c"}) Put(folder / name, kOld);
  fs::create_directory(folder / "sub");
  const FolderListing listing = ListFiles(SystemFileCalls(), folder.Path());
  EXPECT_TRUE(listing.status.Ok());
  EXPECT_EQ(listing.names, (std::vector<std::string>{".c", "C.pre", "a.pre", "b.pre"}));
  EXPECT_EQ(ListFiles(SystemFileCalls(), folder / "none").status.failure, FileFailure::kMissing);
}

}  // namespace
}  // namespace vesmora
