#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/files.h"

namespace vesmora {

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path, error);
  if (error) return path;
  // Behind a symbolic link ".." is another folder than the text says.
  const bool climbs = std::ranges::find(absolute, "..") != absolute.end();
  return (climbs ? absolute : absolute.lexically_normal()).string();
}

}  // namespace vesmora
