#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/temp_folder.h"

namespace vesmora {

// Before /tmp comes the one that a restart of the computer does not empty: what an editor leaves
// behind at a power cut shall be found.
std::vector<std::string> SystemTempFolders() {
  std::vector<std::string> folders;
  const char* given = std::getenv("TMPDIR");
  if (given != nullptr && *given == '/') folders.emplace_back(given);
  folders.insert(folders.end(), {"/var/tmp", "/tmp"});
  for (std::string& folder : folders) {
    if (!folder.ends_with('/')) folder += '/';
  }
  return folders;
}

std::string OwnFolderName() { return "vesmora-" + std::to_string(::geteuid()); }

// The system lets go of the lock when the process ends. The folder itself is locked: a file in it
// could be deleted as old, while systemd's cleaning leaves locked folders alone. Some network file
// systems lock no folders.
int HoldFolder(const std::string& folder) {
  const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return kNotHeld;
  int result = -1;
  do {
    result = ::flock(handle, LOCK_EX | LOCK_NB);
  } while (result < 0 && errno == EINTR);
  if (result == 0) return handle;
  const int failure = errno == EWOULDBLOCK ? kNotHeld : kCannotBeHeld;
  ::close(handle);
  return failure;
}

void LetFolderGo(int handle) { ::close(handle); }

}  // namespace vesmora
