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

// The system lets go of the lock when the process ends, so the handle is never closed. The
// folder itself is locked: a file in it could be deleted as old, while systemd's cleaning leaves
// locked folders alone. Where folders cannot be locked (NFS) nobody is kept out.
bool HoldFolder(const std::string& folder) {
  const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return false;
  if (::flock(handle, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return true;
  ::close(handle);
  return false;
}

}  // namespace vesmora
