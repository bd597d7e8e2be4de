// The copy of a map that is about to be replaced.
#pragma once

#include <string>

#include "platform/files.h"

namespace vesmora {

/// Keeps the file `path` as the one backup, backup.pmp in `tempFolder`, which ends with a slash.
/// Succeeds without one when there is certainly no such file. Whatever fails, the file itself is
/// as it was and must not be replaced.
[[nodiscard]] FileStatus BackUpMap(FileCalls& files, const std::string& tempFolder,
                                   const std::string& path);

}  // namespace vesmora
