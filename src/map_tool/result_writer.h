// Puts results where they go, each whole or not at all.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "map_tool/world.h"
#include "platform/files.h"

namespace vesmora::map_tool {

class ResultWriter {
 public:
  /// With `keepsMaps`, a map that a result replaces is kept as the backup.
  ResultWriter(World& world, bool keepsMaps) : world_(world), keepsMaps_(keepsMaps) {}

  /// To a file, or "-" for standard output.
  FileStatus Write(const std::string& target, const std::vector<std::byte>& bytes);

 private:
  FileStatus KeepBackup(const std::string& target);

  World& world_;
  bool keepsMaps_;
  std::optional<std::string> tempFolder_;
};

}  // namespace vesmora::map_tool
