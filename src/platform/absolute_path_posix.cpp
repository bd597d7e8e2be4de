#include <filesystem>
#include <system_error>

#include "platform/files.h"

namespace vesmora {

std::string AbsolutePath(const std::string& path) {
  std::error_code error;
  const auto absolute = std::filesystem::absolute(path, error);
  return error ? path : absolute.lexically_normal().string();
}

}  // namespace vesmora
