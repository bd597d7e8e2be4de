#include "platform/profile_files.h"

namespace vesmora {

FileContents ReadProfile(FileCalls& files, const std::string& path) {
  constexpr std::size_t kLimit = std::size_t{1} << 24U;  // bytes; no profile is near it
  FileContents contents = ReadFile(files, path, kLimit);
  if (contents.size > kLimit) contents.status = {FileFailure::kError, "The file is too large."};
  return contents;
}

}  // namespace vesmora
