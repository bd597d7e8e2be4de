#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/temp_folder.h"

namespace vesmora {
namespace {

/// With a trailing slash.
std::string SharedTempFolder(FileCalls& calls) {
  const char* given = std::getenv("TMPDIR");
  FileInfo info;
  const bool usable = given != nullptr && *given == '/' && calls.Info(given, info) >= 0 &&
                      info.kind == FileKind::kFolder;
  const std::string folder = usable ? given : "/tmp";
  return folder.ends_with('/') ? folder : folder + "/";
}
}  // namespace

std::string PrivateTempFolder(FileCalls& calls, FileStatus& status) {
  const std::string usual = SharedTempFolder(calls) + "vesmora-" + std::to_string(::geteuid());
  status = CreatePrivateFolder(calls, usual);
  if (status.Ok()) return usual + "/";

  // Somebody else's: a new folder, which therefore nobody can have prepared.
  constexpr unsigned kPrivateMode = 0700;
  const std::string fresh = usual + "-" + UnlikelyName();
  if (calls.MakeFolder(fresh, kPrivateMode) < 0) {
    status = {FileFailure::kError, calls.LastError()};
    return "";
  }
  status = {};
  return fresh + "/";
}

// Takes a folder for as long as this process lives; the system lets go of the lock
// when it ends, so the handle is never closed. False when another process has it. The
// folder itself is locked: a file in it could be swept away, and sweepers pass by locked
// folders.
bool HoldFolder(const std::string& folder) {
  const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return false;
  if (::flock(handle, LOCK_EX | LOCK_NB) == 0) return true;
  ::close(handle);
  return false;
}

std::string HoldUndoFolder(FileCalls& calls, const std::string& tempFolder) {
  if (tempFolder.empty()) return "";
  if (HoldFolder(tempFolder)) return tempFolder;
  constexpr int kMostEditors = 100;
  for (int number = 2; number <= kMostEditors; ++number) {
    const std::string folder = tempFolder + std::to_string(number);
    if (CreatePrivateFolder(calls, folder).Ok() && HoldFolder(folder + "/")) return folder + "/";
  }
  return "";
}

}  // namespace vesmora
