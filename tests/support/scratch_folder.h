// A folder for one test, deleted with all that is in it.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>  // mkdtemp

#include <filesystem>
#include <string>

namespace vesmora {

class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "vesmora-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) ADD_FAILURE() << "no folder " << name;
    path_ = name + "/";
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  /// With a trailing slash.
  const std::string& Path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + name; }

 private:
  std::string path_;
};

}  // namespace vesmora
