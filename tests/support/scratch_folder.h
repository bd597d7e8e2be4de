// A folder for one test, deleted with all that is in it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "platform/files.h"

namespace vesmora {

/// Of a name in UTF-8, whatever the system takes plain strings for.
inline std::filesystem::path PathOf(const std::string& name) {
  return std::u8string(name.begin(), name.end());
}

class ScratchFolder {
 public:
  ScratchFolder() {
    const auto folder = std::filesystem::temp_directory_path() / ("vesmora-test-" + UnlikelyName());
    if (!std::filesystem::create_directory(folder)) ADD_FAILURE() << "no folder " << folder;
    const std::u8string name = folder.u8string();
    path_ = std::string(name.begin(), name.end()) + "/";
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(PathOf(path_), ignored);
  }

  /// With a trailing slash.
  const std::string& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};

}  // namespace vesmora
