// A folder for the files of one benchmark, and what ends one that cannot go on.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace vesmora::bench {

inline void Require(bool condition, const char* what) {
  if (!condition) throw std::runtime_error(what);
}

/// A scratch folder beside the build, on a disk most likely: a temporary folder may lie in
/// memory, where syncing costs nothing.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = VESMORA_BENCH_FOLDER "/scratch-XXXXXX";
    Require(::mkdtemp(name.data()) != nullptr, "no scratch folder");
    path_ = name + "/";
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string operator/(const char* name) const { return path_ + name; }
  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace vesmora::bench
