#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <system_error>

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
    return Result(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  }

  int CreateNew(const std::string& path, unsigned mode) override {
    return Result(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
  }

  int OpenInPlace(const std::string& path) override {
    constexpr int kFlags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    constexpr mode_t kUsualMode = 0666;
    return Result(::open(path.c_str(), kFlags, kUsualMode));
  }

  std::int64_t Read(int handle, std::span<std::byte> bytes) override {
    return Result(::read(handle, bytes.data(), bytes.size()));
  }

  std::int64_t Write(int handle, std::span<const std::byte> bytes) override {
    return Result(::write(handle, bytes.data(), bytes.size()));
  }

  int Sync(int handle) override { return Result(::fsync(handle)); }

  int Close(int handle) override { return Result(::close(handle)); }

  int InfoOfHandle(int handle, FileInfo& info) override {
    struct stat status = {};
    if (::fstat(handle, &status) < 0) return Result(-1);
    info = InfoFrom(status);
    return 0;
  }

  int KeepAccess(int handle, const std::string& from) override {
    constexpr uid_t kSameUser = static_cast<uid_t>(-1);
    constexpr gid_t kSameGroup = static_cast<gid_t>(-1);
    struct stat status = {};
    if (::stat(from.c_str(), &status) < 0) return Result(-1);
    mode_t mode = status.st_mode & kPermissions;
    // A group that the old file did not serve gets what all others got.
    if (::fchown(handle, kSameUser, status.st_gid) < 0) mode = (mode & 0707U) | (mode & 07U) << 3U;
    const int owned = ::fchown(handle, status.st_uid, kSameGroup);
    return Result(::fchmod(handle, mode) < 0 ? -1 : owned);
  }

  int Info(const std::string& path, FileInfo& info) override {
    struct stat status = {};
    if (::stat(path.c_str(), &status) < 0) return Result(-1);
    info = InfoFrom(status);
    return 0;
  }

  int MayWrite(const std::string& path) override {
    return Result(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
  }

  int ReadLink(const std::string& path, std::string& target) override {
    std::array<char, 4096> buffer = {};  // the longest path the system takes
    const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (length >= 0) target.assign(buffer.data(), static_cast<std::size_t>(length));
    return Result(length < 0 ? -1 : 0);
  }

  int Rename(const std::string& from, const std::string& to) override {
    return Result(::rename(from.c_str(), to.c_str()));
  }

  int Link(const std::string& from, const std::string& to) override {
    return Result(::link(from.c_str(), to.c_str()));
  }

  int Unlink(const std::string& path) override { return Result(::unlink(path.c_str())); }

  int SyncFolder(const std::string& path) override {
    const int handle = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return Result(-1);
    const int result = Result(::fsync(handle));
    ::close(handle);
    return result;
  }

  int MakeFolder(const std::string& path, unsigned mode) override {
    return Result(::mkdir(path.c_str(), mode));
  }

  int ClaimFolder(const std::string& path) override {
    const int handle = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (handle < 0) return Result(-1);
    struct stat status = {};
    int result = Result(::fstat(handle, &status));
    if (result >= 0) {
      constexpr mode_t kWritableByOthers = S_IWGRP | S_IWOTH;
      if (status.st_uid != ::geteuid() || (status.st_mode & kWritableByOthers) != 0) {
        result = Failed(EPERM);
      } else if ((status.st_mode & kPermissions) != S_IRWXU) {
        result = Result(::fchmod(handle, S_IRWXU));
      }
    }
    ::close(handle);
    return result;
  }

  int ListFolder(const std::string& path, std::vector<std::string>& names) override {
    DIR* folder = ::opendir(path.c_str());
    if (folder == nullptr) return Result(-1);
    errno = 0;
    while (const dirent* entry = ::readdir(folder)) {
      const std::string name = entry->d_name;
      if (name != "." && name != "..") names.push_back(name);
    }
    const int result = errno != 0 ? Result(-1) : 0;
    ::closedir(folder);
    return result;
  }

  std::string LastError() const override { return std::generic_category().message(lastError_); }

 private:
  /// Turns the system's -1 into the negated error number and remembers it.
  template <typename Number>
  Number Result(Number result) {
    return result < 0 ? static_cast<Number>(Failed(errno)) : result;
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
