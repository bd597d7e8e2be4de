// Profile files: "[section]" lines with "key=value" lines below, as the game keeps its
// settings. Names compare without regard to case.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/files.h"

namespace vesmora {

class ProfileFiles {
 public:
  ProfileFiles() = default;
  ProfileFiles(const ProfileFiles&) = delete;
  ProfileFiles& operator=(const ProfileFiles&) = delete;
  virtual ~ProfileFiles() = default;

  /// The leading whole number of the value; `fallback` when the key is absent or the
  /// file cannot be read.
  virtual std::int32_t ReadInt(const std::string& path, const std::string& section,
                               const std::string& key, std::int32_t fallback) = 0;

  /// Sets one key, adding it and its section where they are missing. Every other byte
  /// of the file stays; a failure leaves the whole file as it was.
  virtual FileStatus Write(const std::string& path, const std::string& section,
                           const std::string& key, const std::string& value) = 0;
};

/// The bytes of a profile; a file too large to be one is an error.
FileContents ReadProfile(FileCalls& files, const std::string& path);

/// The running system's own calls where it has them, else the same behaviour over `files`,
/// which must live as long.
std::unique_ptr<ProfileFiles> SystemProfileFiles(FileCalls& files);

}  // namespace vesmora
