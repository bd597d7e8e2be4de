// Two contents for a file that is to be replaced as a whole, and ways to put and get them.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"

namespace vesmora {

namespace fs = std::filesystem;

inline std::vector<std::byte> SomeBytes(std::size_t size, unsigned seed) {
  std::vector<std::byte> bytes(size);
  for (std::byte& b : bytes) b = static_cast<std::byte>((seed = seed * 1103515245U + 12345U) >> 16);
  return bytes;
}

inline const std::vector<std::byte> kOld = SomeBytes(700, 1);
inline const std::vector<std::byte> kNew = SomeBytes(1000, 2);

inline void Put(const std::string& path, const std::vector<std::byte>& bytes) {
  fs::remove(path);
  ASSERT_TRUE(WriteFileInPlace(SystemFileCalls(), path, bytes).Ok());
}

inline std::optional<std::vector<std::byte>> Get(const std::string& path) {
  FileContents contents = ReadFile(SystemFileCalls(), path, 1U << 20U);
  if (!contents.status.Ok()) return std::nullopt;
  return contents.bytes;
}

}  // namespace vesmora
