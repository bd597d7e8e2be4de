#include "document/map_backup.h"

namespace vesmora {

FileStatus BackUpMap(FileCalls& files, const std::string& tempFolder, const std::string& path) {
  if (tempFolder.empty() && FileExists(files, path)) {
    return {FileFailure::kError, "There is no temporary folder for the backup."};
  }
  // The save will fail, and a write-protected backup could not be replaced by the next one.
  if (FileExists(files, path) && files.MayWrite(path) < 0) {
    return {FileFailure::kError, files.LastError()};
  }
  // It may have been swept away while the program ran.
  if (IsGone(files, tempFolder)) CreatePrivateFolder(files, tempFolder);
  const std::string backup = tempFolder + "backup.pmp";
  FileStatus status = CopyFileDurably(files, path, backup);
  // Only a file that is certainly not there needs no backup.
  if (status.failure == FileFailure::kMissing) return {};
  if (!status.Ok()) status.reason = "The backup '" + backup + "' failed. " + status.reason;
  return status;
}

}  // namespace vesmora
