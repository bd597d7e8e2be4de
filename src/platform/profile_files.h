// Profile files: "[section]" lines with "key=value" lines below, as the game keeps its
// settings. Names compare without regard to case.
#pragma once

#include <cstdint>
#include <string>

#include "platform/files.h"

namespace vesmora {

/// Through the running system's own calls where it has them, else with the same behaviour over
/// `files`, which must live as long.
class ProfileFiles {
 public:
  explicit ProfileFiles(FileCalls& files) : files_(files) {}

  /// The leading whole number of the value; `fallback` when the key is absent or the
  /// file cannot be read.
  std::int32_t ReadInt(const std::string& path, const std::string& section, const std::string& key,
                       std::int32_t fallback) const;

  /// Sets one key, adding it and its section where they are missing. Every other byte
  /// of the file stays; a failure leaves the whole file as it was.
  [[nodiscard]] FileStatus Write(const std::string& path, const std::string& section,
                                 const std::string& key, const std::string& value);

 private:
  FileCalls& files_;
};

/// The bytes of a profile, with the failures of ReadFile; a file too large to be one is an error.
FileContents ReadProfile(FileCalls& files, const std::string& path);

}  // namespace vesmora
