#include "map_tool/result_writer.h"

#include "document/map_backup.h"
#include "map_tool/inputs.h"
#include "platform/interruptions.h"

namespace vesmora::map_tool {

FileStatus ResultWriter::Write(const std::string& target, const std::vector<std::byte>& bytes) {
  if (bytes.empty()) return {FileFailure::kError, "there is nothing to write"};
  if (target == kStandardStream) return world_.console.Write(bytes);
  const InterruptionsWait wait;
  if (keepsMaps_ && FileExists(world_.files, target)) {
    const FileStatus status = KeepBackup(target);
    if (!status.Ok()) return status;
  }
  return WriteFileDurably(world_.files, target, bytes);
}

FileStatus ResultWriter::KeepBackup(const std::string& target) {
  if (!tempFolder_) tempFolder_ = world_.tempFolder();
  return BackUpMap(world_.files, *tempFolder_, target);
}

}  // namespace vesmora::map_tool
