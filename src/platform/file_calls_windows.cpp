#include <aclapi.h>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <functional>

#include "platform/file_calls.h"
#include "platform/wide_text_windows.h"

namespace vesmora {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30U;  // bytes of one read or write
constexpr DWORD kFolderToo = FILE_FLAG_BACKUP_SEMANTICS;    // CreateFileW opens folders with it

/// A handle that is closed at the end of its block.
class Opened {
 public:
  Opened(const std::string& path, DWORD access, DWORD flags = kFolderToo)
      : handle_(CreateFileW(Wide(path).c_str(), access, kShareAll, nullptr, OPEN_EXISTING, flags,
                            nullptr)) {}
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;
  ~Opened() {
    if (IsOpen()) CloseHandle(handle_);
  }

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }

 private:
  HANDLE handle_;
};

/// The <cerrno> value of what callers tell apart; EIO for everything else.
int ErrnoOf(DWORD error) {
  switch (error) {
    // Only what says that the name is free: a server that does not answer is no proof.
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
      return ENOENT;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_INVALID_PARAMETER:
      return EINVAL;
    case ERROR_INVALID_FUNCTION:
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
      return ENOTSUP;
    default:
      return EIO;
  }
}

HANDLE SystemHandle(int handle) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(handle));  // NOLINT(*-int-to-ptr)
}

std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32U | low; }

/// The path that all names of a file lead to; empty when the system cannot tell.
std::wstring FinalPath(HANDLE handle) {
  std::wstring path(GetFinalPathNameByHandleW(handle, nullptr, 0, 0), L'\0');
  const DWORD length =
      GetFinalPathNameByHandleW(handle, path.data(), static_cast<DWORD>(path.size()), 0);
  path.resize(length < path.size() ? length : 0);
  return path;
}

bool InfoFrom(HANDLE handle, FileInfo& info) {
  info = {};
  if (GetFileType(handle) != FILE_TYPE_DISK) return true;
  BY_HANDLE_FILE_INFORMATION status = {};
  if (GetFileInformationByHandle(handle, &status) == 0) return false;
  const bool isFolder = (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  info.kind = isFolder ? FileKind::kFolder : FileKind::kRegular;
  info.size = Joined(status.nFileSizeHigh, status.nFileSizeLow);
  info.device = status.dwVolumeSerialNumber;
  info.number = Joined(status.nFileIndexHigh, status.nFileIndexLow);
  constexpr std::uint64_t kTicks = 10000;                // of 100 ns a millisecond
  constexpr std::uint64_t kUntil1970 = 11644473600000U;  // milliseconds since 1601
  const FILETIME& written = status.ftLastWriteTime;
  const std::uint64_t time = Joined(written.dwHighDateTime, written.dwLowDateTime) / kTicks;
  info.modified = static_cast<std::int64_t>(time - kUntil1970);
  // Some servers do not number their files: no two different ones must seem the same.
  if (info.number == 0) info.number = std::hash<std::wstring>()(FinalPath(handle));
  return true;
}

bool IsLink(const std::string& path) {
  WIN32_FIND_DATAW entry = {};
  const HANDLE search = FindFirstFileW(Wide(path).c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

/// A scanner or indexer that looks at a file just written holds it for a moment, and
/// renames and deletions fail for as long.
template <typename Call>
BOOL Patiently(Call call) {
  constexpr int kTries = 10;
  constexpr DWORD kPause = 20;  // ms
  BOOL done = call();
  for (int i = 1; done == 0 && i < kTries; ++i) {
    const DWORD error = GetLastError();
    if (error != ERROR_ACCESS_DENIED && error != ERROR_SHARING_VIOLATION) break;
    Sleep(kPause);
    done = call();
  }
  return done;
}

// Access comes from the folder, as for every file that people make there: the `mode`s of
// these calls say nothing here.
class WindowsFileCalls final : public FileCalls {
 public:
  int OpenToRead(const std::string& path) override {
    return Open(path, GENERIC_READ, kShareAll, OPEN_EXISTING, kFolderToo);
  }

  int CreateNew(const std::string& path, unsigned /*mode*/) override {
    constexpr DWORD kAccess = GENERIC_WRITE | READ_CONTROL | WRITE_DAC;  // for KeepAccess
    return Open(path, kAccess, FILE_SHARE_READ, CREATE_NEW, FILE_ATTRIBUTE_NORMAL);
  }

  int OpenInPlace(const std::string& path) override {
    if (IsLink(path)) return Failed(ERROR_CANT_RESOLVE_FILENAME);
    constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT;
    return Open(path, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS, kFlags);
  }

  std::int64_t Read(int handle, std::span<std::byte> bytes) override {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    const BOOL done = ReadFile(SystemHandle(handle), bytes.data(), size, &count, nullptr);
    return done != 0 ? std::int64_t{count} : Failed();
  }

  std::int64_t Write(int handle, std::span<const std::byte> bytes) override {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    const BOOL done = WriteFile(SystemHandle(handle), bytes.data(), size, &count, nullptr);
    return done != 0 ? std::int64_t{count} : Failed();
  }

  int Sync(int handle) override { return Result(FlushFileBuffers(SystemHandle(handle))); }

  int Close(int handle) override { return _close(handle) == 0 ? 0 : Failed(ERROR_INVALID_HANDLE); }

  int InfoOfHandle(int handle, FileInfo& info) override {
    return Result(InfoFrom(SystemHandle(handle), info));
  }

  int KeepAccess(int handle, const std::string& from) override {
    const Opened model(from, READ_CONTROL);
    if (!model.IsOpen()) return Failed();
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    DWORD error = GetSecurityInfo(model.Get(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr,
                                  nullptr, &list, nullptr, &descriptor);
    if (error != ERROR_SUCCESS) return Failed(error);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    GetSecurityDescriptorControl(descriptor, &control, &revision);
    // What a file inherits, the new one inherits likewise; what was set on it, it gets.
    const bool inherits = (control & SE_DACL_PROTECTED) == 0;
    const DWORD what = DACL_SECURITY_INFORMATION | (inherits ? UNPROTECTED_DACL_SECURITY_INFORMATION
                                                             : PROTECTED_DACL_SECURITY_INFORMATION);
    error = SetSecurityInfo(SystemHandle(handle), SE_FILE_OBJECT, what, nullptr, nullptr, list,
                            nullptr);
    LocalFree(descriptor);
    return error == ERROR_SUCCESS ? 0 : Failed(error);
  }

  int Info(const std::string& path, FileInfo& info) override {
    const Opened file(path, FILE_READ_ATTRIBUTES);
    return Result(file.IsOpen() && InfoFrom(file.Get(), info));
  }

  int MayWrite(const std::string& path) override {
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    const bool isProtected =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (isProtected) return Failed(ERROR_ACCESS_DENIED);  // whoever asks
    // A program that holds the file may allow writing but not replacing it, which also forbids
    // deleting any second name of the file.
    constexpr DWORD kAccess = GENERIC_WRITE | DELETE;
    return Result(
        Patiently([&] { return Opened(path, kAccess, FILE_ATTRIBUTE_NORMAL).IsOpen() ? 1 : 0; }));
  }

  int ReadLink(const std::string& path, std::string& target) override {
    if (GetFileAttributesW(Wide(path).c_str()) == INVALID_FILE_ATTRIBUTES) return Failed();
    if (!IsLink(path)) return Failed(ERROR_INVALID_PARAMETER);
    // The system follows it to the end. A link that leads nowhere is not written through.
    const Opened file(path, FILE_READ_ATTRIBUTES);
    if (!file.IsOpen()) return Failed(ERROR_CANT_RESOLVE_FILENAME);
    target = Utf8(FinalPath(file.Get()));
    return target.empty() ? Failed() : 0;
  }

  int Rename(const std::string& from, const std::string& to) override {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    const std::wstring wideFrom = Wide(from);
    const std::wstring wideTo = Wide(to);
    return Result(Patiently([&] { return MoveFileExW(wideFrom.c_str(), wideTo.c_str(), kFlags); }));
  }

  int Link(const std::string& from, const std::string& to) override {
    return Result(CreateHardLinkW(Wide(to).c_str(), Wide(from).c_str(), nullptr));
  }

  int Unlink(const std::string& path) override {
    const std::wstring wide = Wide(path);
    return Result(Patiently([&] { return DeleteFileW(wide.c_str()); }));
  }

  /// Not every file system takes a flush of a folder, nor every user's rights suffice for
  /// it. The rename itself was written through, so nothing is lost then.
  int SyncFolder(const std::string& path) override {
    FileInfo info;
    if (const int result = Info(path, info); result < 0) return result;
    const Opened folder(path, GENERIC_WRITE);
    if (folder.IsOpen() && FlushFileBuffers(folder.Get()) != 0) return 0;
    const DWORD error = GetLastError();
    constexpr std::array<DWORD, 5> kCannot = {ERROR_ACCESS_DENIED, ERROR_DELETE_PENDING,
                                              ERROR_CANT_ACCESS_FILE, ERROR_PRIVILEGE_NOT_HELD,
                                              ERROR_INVALID_HANDLE};
    const bool cannot = std::ranges::find(kCannot, error) != kCannot.end();
    return Failed(cannot ? ERROR_NOT_SUPPORTED : error);
  }

  int MakeFolder(const std::string& path, unsigned /*mode*/) override {
    return Result(CreateDirectoryW(Wide(path).c_str(), nullptr));
  }

  int RemoveFolder(const std::string& path) override {
    return Result(RemoveDirectoryW(Wide(path).c_str()));
  }

  /// Only made use of in the temporary folder, which nobody else can enter as it is.
  int ClaimFolder(const std::string& path) override {
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return Failed();
    const bool isPlain = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
                         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
    return isPlain ? 0 : Failed(ERROR_DIRECTORY);
  }

  int ListFolder(const std::string& path, std::vector<std::string>& names) override {
    if (path.empty()) return Failed(ERROR_PATH_NOT_FOUND);
    WIN32_FIND_DATAW entry = {};
    const HANDLE search = FindFirstFileW(Wide(path + "/*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
      // The root of an empty drive, which lists not even itself.
      return GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : Failed();
    }
    do {
      const std::string name = Utf8(entry.cFileName);
      if (name != "." && name != "..") names.push_back(name);
    } while (FindNextFileW(search, &entry) != 0);
    const DWORD error = GetLastError();
    FindClose(search);
    return error == ERROR_NO_MORE_FILES ? 0 : Failed(error);
  }

  std::string LastError() const override { return ErrorText(lastError_); }

 private:
  int Open(const std::string& path, DWORD access, DWORD share, DWORD how, DWORD flags) {
    const HANDLE handle =
        CreateFileW(Wide(path).c_str(), access, share, nullptr, how, flags, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return Failed();
    const int number = _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY);
    if (number >= 0) return number;
    CloseHandle(handle);
    return Failed(ERROR_TOO_MANY_OPEN_FILES);
  }

  int Result(BOOL done) { return done != 0 ? 0 : Failed(); }
  int Result(bool done) { return done ? 0 : Failed(); }

  int Failed(DWORD error = GetLastError()) {
    lastError_ = error;
    return -ErrnoOf(error);
  }

  DWORD lastError_ = 0;
};

}  // namespace

FileCalls& SystemFileCalls() {
  static WindowsFileCalls calls;
  return calls;
}

}  // namespace vesmora
