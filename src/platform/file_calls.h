// The system calls for files: one method, one step. What the steps add up to lies in files.h;
// tests put a layer between.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vesmora {

enum class FileKind { kRegular, kFolder, kOther };

struct FileInfo {
  FileKind kind = FileKind::kOther;
  std::uint64_t size = 0;     // bytes
  std::uint64_t device = 0;   // device and number together tell whether two
  std::uint64_t number = 0;   // paths name the same file
  std::int64_t modified = 0;  // milliseconds since 1970
};

/// Paths are UTF-8. Every call returns 0 or more on success and a negated <cerrno>
/// value on failure, -EIO where no caller needs a finer one; LastError() then has the system's
/// words for it. What a signal cuts off is called again. Short reads and writes are the caller's to
/// handle. Handles are closed by the caller.
class FileCalls {
 public:
  FileCalls() = default;
  FileCalls(const FileCalls&) = delete;
  FileCalls& operator=(const FileCalls&) = delete;
  virtual ~FileCalls() = default;

  /// Returns a handle. Never waits, not even for a pipe's other end.
  virtual int OpenToRead(const std::string& path) = 0;
  /// Returns a handle. Fails with -EEXIST on any existing name, links included.
  /// `mode` are the permission bits before the user's mask is applied.
  virtual int CreateNew(const std::string& path, unsigned mode) = 0;
  /// Returns a handle at the start of the file, which is created when missing and
  /// keeps its length otherwise. Does not follow a symbolic link.
  virtual int OpenInPlace(const std::string& path) = 0;

  /// Return the number of bytes moved; a read at the end of the file gives 0.
  virtual std::int64_t Read(int handle, std::span<std::byte> bytes) = 0;
  virtual std::int64_t Write(int handle, std::span<const std::byte> bytes) = 0;
  virtual int Sync(int handle) = 0;
  /// The handle is gone afterwards, also when this fails.
  virtual int Close(int handle) = 0;
  virtual int InfoOfHandle(int handle, FileInfo& info) = 0;
  /// Gives an open file the owner and the permissions of `from`, as far as allowed;
  /// never more access than `from` grants.
  virtual int KeepAccess(int handle, const std::string& from) = 0;

  virtual int Info(const std::string& path, FileInfo& info) = 0;  // follows links
  /// Succeeds when the user may write to the existing file `path`, and replace it.
  virtual int MayWrite(const std::string& path) = 0;
  /// Fails with -EINVAL when `path` is there and is no symbolic link.
  virtual int ReadLink(const std::string& path, std::string& target) = 0;

  virtual int Rename(const std::string& from, const std::string& to) = 0;  // replaces `to`
  /// A second name for the same file; fails with -EEXIST when `to` is taken.
  virtual int Link(const std::string& from, const std::string& to) = 0;
  virtual int Unlink(const std::string& path) = 0;

  virtual int SyncFolder(const std::string& path) = 0;
  virtual int MakeFolder(const std::string& path, unsigned mode) = 0;
  /// An empty one.
  virtual int RemoveFolder(const std::string& path) = 0;
  /// Makes an existing folder accessible to this user, and to nobody else. Fails when it is a link
  /// or no folder (-ENOTDIR), another user's, or one in which others have put something (-EPERM).
  virtual int ClaimFolder(const std::string& path) = 0;
  /// The names in a folder without "." and "..", in no order.
  virtual int ListFolder(const std::string& path, std::vector<std::string>& names) = 0;

  /// Why the last failed call failed, in the system's words.
  virtual std::string LastError() const = 0;
};

/// The running system's calls: one object for the whole program, to the end of it.
FileCalls& SystemFileCalls();

}  // namespace vesmora
