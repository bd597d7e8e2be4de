#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <system_error>
#include <type_traits>

#include "platform/file_calls.h"

namespace vesmora {
namespace {

constexpr unsigned kPermissions = 0777;

FileInfo InfoFrom(const struct stat& status) {
  FileInfo info;
  if (S_ISREG(status.st_mode)) info.kind = FileKind::kRegular;
  if (S_ISDIR(status.st_mode)) info.kind = FileKind::kFolder;
  info.size = static_cast<std::uint64_t>(status.st_size);
  info.device = status.st_dev;
  info.number = status.st_ino;
  info.modified = std::int64_t{status.st_mtim.tv_sec} * 1000 + status.st_mtim.tv_nsec / 1000000;
  return info;
}

class PosixFileCalls final : public FileCalls {
 public:
  // A limit on the file size shall come back as an error, not end the program. A signal that is
  // handled, unlike one that is ignored, is as usual again in the programs that the editor starts.
  PosixFileCalls() {
    std::signal(SIGXFSZ, [](int) {});
  }

  int OpenToRead(const std::string& path) override {
    return Try([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); });
  }

  int CreateNew(const std::string& path, unsigned mode) override {
    return Try([&] { return ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
  }

  int OpenInPlace(const std::string& path) override {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    constexpr mode_t kUsualMode = 0666;
    return Try([&] { return ::open(path.c_str(), kFlags, kUsualMode); });
  }

  std::int64_t Read(int handle, std::span<std::byte> bytes) override {
    return Try([&] { return ::read(handle, bytes.data(), bytes.size()); });
  }

  std::int64_t Write(int handle, std::span<const std::byte> bytes) override {
    return Try([&] { return ::write(handle, bytes.data(), bytes.size()); });
  }

  int Sync(int handle) override {
    return Try([&] { return ::fsync(handle); });
  }

  // Not called again: the handle is gone, whatever cut it off.
  int Close(int handle) override {
    return ::close(handle) < 0 && errno != EINTR ? Failed(errno) : 0;
  }

  int InfoOfHandle(int handle, FileInfo& info) override {
    struct stat status = {};
    const int result = Try([&] { return ::fstat(handle, &status); });
    if (result >= 0) info = InfoFrom(status);
    return result;
  }

  int KeepAccess(int handle, const std::string& from) override {
    constexpr uid_t kSameUser = static_cast<uid_t>(-1);
    constexpr gid_t kSameGroup = static_cast<gid_t>(-1);
    struct stat status = {};
    const int result = Try([&] { return ::stat(from.c_str(), &status); });
    if (result < 0) return result;
    mode_t mode = status.st_mode & kPermissions;
    // A group that the old file did not serve gets what all others got.
    if (::fchown(handle, kSameUser, status.st_gid) < 0) mode = (mode & 0707U) | (mode & 07U) << 3U;
    const int owned = Try([&] { return ::fchown(handle, status.st_uid, kSameGroup); });
    const int closed = Try([&] { return ::fchmod(handle, mode); });
    return closed < 0 ? closed : owned;
  }

  int Info(const std::string& path, FileInfo& info) override {
    struct stat status = {};
    const int result = Try([&] { return ::stat(path.c_str(), &status); });
    if (result >= 0) info = InfoFrom(status);
    return result;
  }

  int MayWrite(const std::string& path) override {
    return Try([&] { return ::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS); });
  }

  int ReadLink(const std::string& path, std::string& target) override {
    std::array<char, 4096> buffer = {};  // the longest path the system takes
    const ssize_t length =
        Try([&] { return ::readlink(path.c_str(), buffer.data(), buffer.size()); });
    if (length >= 0) target.assign(buffer.data(), static_cast<std::size_t>(length));
    return static_cast<int>(std::min<ssize_t>(length, 0));
  }

  int Rename(const std::string& from, const std::string& to) override {
    return Try([&] { return ::rename(from.c_str(), to.c_str()); });
  }

  int Link(const std::string& from, const std::string& to) override {
    return Try([&] { return ::link(from.c_str(), to.c_str()); });
  }

  int Unlink(const std::string& path) override {
    return Try([&] { return ::unlink(path.c_str()); });
  }

  int SyncFolder(const std::string& path) override {
    const int handle =
        Try([&] { return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
    if (handle < 0) return handle;
    const int result = Try([&] { return ::fsync(handle); });
    ::close(handle);
    return result;
  }

  int MakeFolder(const std::string& path, unsigned mode) override {
    return Try([&] { return ::mkdir(path.c_str(), mode); });
  }

  int RemoveFolder(const std::string& path) override {
    return Try([&] { return ::rmdir(path.c_str()); });
  }

  // By its name, as a folder that its owner may not read cannot be opened. Where users share the
  // folder above, nobody can put another in the place of one that is this user's.
  int ClaimFolder(const std::string& path) override {
    struct stat status = {};
    const int result = Try([&] { return ::lstat(path.c_str(), &status); });
    if (result < 0) return result;
    if (!S_ISDIR(status.st_mode)) return Failed(ENOTDIR);
    if (status.st_uid != ::geteuid()) return Failed(EPERM);
    if ((status.st_mode & kPermissions) == S_IRWXU) return 0;
    const int closed = Try([&] { return ::chmod(path.c_str(), S_IRWXU); });
    constexpr mode_t kWritableByOthers = S_IWGRP | S_IWOTH;
    if (closed < 0 || (status.st_mode & kWritableByOthers) == 0 || !HoldsForeign(path)) {
      return closed;
    }
    ::chmod(path.c_str(), status.st_mode & kPermissions);  // so that the next one sees it, too
    return Failed(EPERM);
  }

  int ListFolder(const std::string& path, std::vector<std::string>& names) override {
    DIR* folder = nullptr;
    const int opened = Try([&] {
      folder = ::opendir(path.c_str());
      return folder == nullptr ? -1 : 0;
    });
    if (opened < 0) return opened;
    errno = 0;
    while (const dirent* entry = ::readdir(folder)) {
      const std::string name = entry->d_name;
      if (name != "." && name != "..") names.push_back(name);
    }
    const int result = errno != 0 ? Failed(errno) : 0;
    ::closedir(folder);
    return result;
  }

  std::string LastError() const override { return std::generic_category().message(lastError_); }

 private:
  /// Whether anything in the folder is a link or not this user's.
  bool HoldsForeign(const std::string& folder) {
    std::vector<std::string> names;
    if (ListFolder(folder, names) < 0) return true;
    return std::ranges::any_of(names, [&](const std::string& name) {
      struct stat status = {};
      const int result = Try([&] { return ::lstat((folder + "/" + name).c_str(), &status); });
      return result < 0 || status.st_uid != ::geteuid() || S_ISLNK(status.st_mode);
    });
  }

  /// What `call` returns; for the system's -1 the negated error number, which is remembered. What a
  /// signal has cut off, as slow file systems allow, is called again.
  template <typename Call>
  std::invoke_result_t<Call> Try(Call call) {
    constexpr int kTries = 1000;
    auto result = call();
    for (int i = 1; result < 0 && errno == EINTR && i < kTries; ++i) result = call();
    return result < 0 ? static_cast<decltype(result)>(Failed(errno)) : result;
  }

  int Failed(int error) {
    lastError_ = error;
    return -error;
  }

  int lastError_ = 0;
};

}  // namespace

FileCalls& SystemFileCalls() {
  static PosixFileCalls calls;
  return calls;
}

}  // namespace vesmora
