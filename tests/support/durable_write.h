// Replacing a file as a whole, and what must be found on the disk afterwards.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"

namespace vesmora {

namespace fs = std::filesystem;

inline std::vector<std::byte> Bytes(std::size_t size, unsigned seed) {
  std::vector<std::byte> bytes(size);
  for (std::byte& b : bytes) b = static_cast<std::byte>((seed = seed * 1103515245U + 12345U) >> 16);
  return bytes;
}

inline const std::vector<std::byte> kOld = Bytes(700, 1);
inline const std::vector<std::byte> kNew = Bytes(1000, 2);

inline void Put(const std::string& path, const std::vector<std::byte>& bytes) {
  fs::remove(path);
  ASSERT_TRUE(WriteFileInPlace(SystemFileCalls(), path, bytes).Ok());
}

inline std::optional<std::vector<std::byte>> Get(const std::string& path) {
  FileContents contents = ReadFile(SystemFileCalls(), path, 1U << 20U);
  if (!contents.status.Ok()) return std::nullopt;
  return contents.bytes;
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

}  // namespace vesmora
