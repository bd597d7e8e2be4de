#include <gtest/gtest.h>
#include <stdlib.h>  // setenv
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/temp_folder.h"
#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"

namespace vesmora {
namespace {

namespace fs = std::filesystem;

class TempFolder : public testing::Test {
 protected:
  void SetUp() override { ::setenv("TMPDIR", shared_.Path().c_str(), 1); }
  void TearDown() override {
    hadBefore_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", hadBefore_.c_str(), 1);
  }

  /// Expects a folder that is real, this user's and closed to others.
  std::string Expected() {
    FileStatus status;
    const std::string path = PrivateTempFolder(SystemFileCalls(), status);
    EXPECT_TRUE(status.Ok()) << status.reason;
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
  EXPECT_EQ(Expected(), usual_ + "/");
  ASSERT_EQ(::chmod(usual_.c_str(), 0755), 0);
  EXPECT_EQ(Expected(), usual_ + "/");
}

TEST_F(TempFolder, WhatOthersPlantedIsLeftAlone) {
  const std::string elsewhere = shared_ / "elsewhere";
  fs::create_directory(elsewhere);
  ASSERT_EQ(::chmod(elsewhere.c_str(), 0755), 0);
  fs::create_directory_symlink(elsewhere, usual_);
  EXPECT_NE(Expected(), usual_ + "/");
  EXPECT_NE(Expected(), Expected());
  EXPECT_EQ(fs::status(elsewhere).permissions(), fs::perms{0755});
  EXPECT_TRUE(fs::is_symlink(usual_) && fs::is_empty(elsewhere));

  fs::remove(usual_);
  fs::create_directory(usual_);
  ASSERT_EQ(::chmod(usual_.c_str(), 0777), 0);
  EXPECT_NE(Expected(), usual_ + "/");
  ASSERT_EQ(::chmod(usual_.c_str(), 0700), 0);
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(usual_.c_str(), 65534, 65534), 0);
    EXPECT_NE(Expected(), usual_ + "/");
  }
  fs::remove(usual_);
  ASSERT_TRUE(WriteFileInPlace(SystemFileCalls(), usual_, {}).Ok());
  EXPECT_NE(Expected(), usual_ + "/");
}

TEST_F(TempFolder, SaysWhyThereIsNone) {
  FaultyFileCalls calls;
  calls.FailAll("MakeFolder", EROFS);
  FileStatus status;
  EXPECT_EQ(PrivateTempFolder(calls, status), "");
  EXPECT_EQ(status.reason, std::strerror(EROFS));
}

}  // namespace
}  // namespace vesmora
