#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/files.h"
#include "platform/programs.h"
#include "platform/window_activation.h"

namespace vesmora {
namespace {

const std::string kNoWine =
    "This is a Windows program, which needs Wine here, and Wine is not installed.";

bool IsProgram(const std::string& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::access(path.c_str(), X_OK) == 0;
}

/// The program of that name on the user's path; empty when there is none.
std::string FindProgram(std::string_view name) {
  const char* given = std::getenv("PATH");
  std::string_view folders = given != nullptr ? given : "/usr/local/bin:/usr/bin:/bin";
  while (!folders.empty()) {
    const std::size_t end = std::min(folders.find(':'), folders.size());
    const std::string path = std::string(folders.substr(0, end)).append("/").append(name);
    // Relative ones depend on where the editor happens to stand.
    if (path.front() == '/' && IsProgram(path)) return path;
    folders.remove_prefix(std::min(end + 1, folders.size()));
  }
  return "";
}

bool IsWindowsProgram(std::string_view path) {
  constexpr std::string_view kExtension = ".exe";
  if (path.size() < kExtension.size()) return false;
  const std::string_view ending = path.substr(path.size() - kExtension.size());
  return std::ranges::equal(ending, kExtension, {},
                            [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c; });
}

/// What to run and the arguments it gets, `path` being absolute. Empty when that needs a
/// missing Wine.
std::vector<std::string> CommandFor(const std::string& path) {
  if (!IsWindowsProgram(path)) return {path};
  for (const char* name : {"wine", "wine64"}) {
    const std::string wine = FindProgram(name);
    if (!wine.empty()) return {wine, path};
  }
  // Some systems are set up to run such files, and others keep scripts under the name.
  if (IsProgram(path)) return {path};
  return {};
}

std::string Words(int error) { return std::generic_category().message(error) + "."; }

/// In the started process: nothing but calls that are safe after a fork. Returns only
/// when it fails.
void Become(char* const* arguments, const char* folder) {
  ::setsid();
  // The editor ignores some signals, and that would be inherited.
  for (const int signal : {SIGXFSZ, SIGPIPE, SIGCHLD, SIGHUP}) std::signal(signal, SIG_DFL);
  sigset_t none;
  sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  const int nothing = ::open("/dev/null", O_RDWR);
  if (nothing < 0) return;
  for (const int handle : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, handle);
  if (nothing > STDERR_FILENO) ::close(nothing);
  if (::chdir(folder) < 0) return;
  ::execve(arguments[0], arguments, environ);
}

/// Runs a command detached from this process: a child starts it and ends at once, so that
/// the system's first process looks after it. Returns 0 or the error number.
int StartDetached(std::vector<std::string> command, const std::string& folder) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& argument : command) arguments.push_back(argument.data());
  arguments.push_back(nullptr);
  // It closes by itself when the program takes over, and carries the error otherwise.
  std::array<int, 2> channel = {};
  if (::pipe2(channel.data(), O_CLOEXEC) < 0) return errno;
  const pid_t child = ::fork();
  int error = child < 0 ? errno : 0;
  if (child == 0) {
    const pid_t grandchild = ::fork();
    if (grandchild > 0) ::_exit(0);
    if (grandchild == 0) Become(arguments.data(), folder.c_str());
    error = errno;
    static_cast<void>(::write(channel[1], &error, sizeof(error)) < 0);
    ::_exit(1);
  }
  ::close(channel[1]);
  if (child > 0) {
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) continue;
    ssize_t count = 0;
    do {
      count = ::read(channel[0], &error, sizeof(error));
    } while (count < 0 && errno == EINTR);
    if (count != sizeof(error)) error = 0;
  }
  ::close(channel[0]);
  return error;
}

class PosixPrograms final : public Programs {
 public:
  bool ActivateWindow(const std::string& title) override { return ActivateWindowByTitle(title); }

  std::string Start(const std::string& path, const std::string& folder) override {
    const std::vector<std::string> command = CommandFor(AbsolutePath(path));
    if (command.empty()) return kNoWine;
    const int error = StartDetached(command, folder);
    if (error == 0) return "";
    // The system knows no such kind of program.
    return error == ENOEXEC && IsWindowsProgram(path) ? kNoWine : Words(error);
  }
};

}  // namespace

std::unique_ptr<Programs> SystemPrograms() { return std::make_unique<PosixPrograms>(); }

}  // namespace vesmora
