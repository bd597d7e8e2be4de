#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/temporary_name.h"

namespace vesmora {

// Containers number their processes on their own, even where they share the computer's name.
std::string ComputerName() {
  std::array<char, 256> name{};
  ::gethostname(name.data(), name.size() - 1);
  struct stat numbering = {};
  ::stat("/proc/self/ns/pid", &numbering);
  return name.data() + std::to_string(numbering.st_ino);
}

long ProcessNumber() { return ::getpid(); }

bool HasEnded(long process) { return ::kill(static_cast<pid_t>(process), 0) < 0 && errno == ESRCH; }

}  // namespace vesmora
