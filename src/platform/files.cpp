#include "platform/files.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>

#include "platform/temporary_name.h"
#include "platform/text.h"

namespace vesmora {
namespace {

constexpr unsigned kPrivateMode = 0700;  // of folders
constexpr int kMaxNameTries = 100;
constexpr int kMaxLinks = 40;  // in a row, as the system itself allows
// Far above any file of the game; keeps a mistaken choice from filling the memory.
constexpr std::size_t kCopyLimit = 256U << 20U;
#ifdef _WIN32
constexpr const char* kSeparators = "/\\";
#else
constexpr const char* kSeparators = "/";
#endif

FileStatus Failure(const std::string& reason) { return {FileFailure::kError, reason}; }

/// The status for what a call returned; must be asked before the next call.
FileStatus StatusOf(const FileCalls& calls, std::int64_t result) {
  if (result >= 0) return {};
  const bool isMissing = result == -ENOENT || result == -ENOTDIR;
  return {isMissing ? FileFailure::kMissing : FileFailure::kError, calls.LastError()};
}

/// The same where a missing file is nothing special: a folder on the way is missing.
FileStatus WriteStatusOf(const FileCalls& calls, std::int64_t result) {
  return result >= 0 ? FileStatus{} : Failure(calls.LastError());
}

std::string FolderOf(const std::string& path) { return std::string(FolderPart(path, kSeparators)); }

FileStatus WrongKind(FileKind kind) {
  return Failure(kind == FileKind::kFolder ? "It is a folder." : "It is not a regular file.");
}

FileStatus ReadBytes(FileCalls& calls, int handle, std::size_t limit, FileContents& contents) {
  FileInfo info;
  const int result = calls.InfoOfHandle(handle, info);
  if (result < 0) return Failure(calls.LastError());
  if (info.kind != FileKind::kRegular) return WrongKind(info.kind);

  contents.size = info.size;
  contents.bytes.resize(static_cast<std::size_t>(std::min<std::uint64_t>(info.size, limit)));
  std::span<std::byte> rest(contents.bytes);
  while (!rest.empty()) {
    const auto count = calls.Read(handle, rest);
    if (count < 0) return Failure(calls.LastError());
    if (count == 0) {  // somebody cut the file in the meantime
      contents.bytes.resize(contents.bytes.size() - rest.size());
      contents.size = contents.bytes.size();
      break;
    }
    rest = rest.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

FileStatus WriteBytes(FileCalls& calls, int handle, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const auto count = calls.Write(handle, bytes);
    if (count < 0) return Failure(calls.LastError());
    if (count == 0) return Failure("Nothing more could be written.");
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

/// Keeps the first failure: a close that fails after a failed write says nothing new.
void CloseWritten(FileCalls& calls, int handle, FileStatus& status) {
  const int result = calls.Close(handle);
  if (status.Ok()) status = WriteStatusOf(calls, result);
}

FileStatus CompareWithFile(FileCalls& calls, const std::string& path,
                           std::span<const std::byte> bytes) {
  const FileContents contents = ReadFile(calls, path, bytes.size());
  if (!contents.status.Ok()) return Failure(contents.status.reason);
  if (contents.size == bytes.size() && std::ranges::equal(contents.bytes, bytes)) return {};
  return Failure("The file does not read back as it was written.");
}

/// Tries new names in `folder` until `call` is content with one; returns its result.
template <typename Call>
int WithNewName(const std::string& folder, std::string& name, Call call) {
  int result = -EEXIST;
  for (int i = 0; result == -EEXIST && i < kMaxNameTries; ++i) {
    name = folder + TemporaryName(UnlikelyName());
    result = call(name);
  }
  return result;
}

/// Follows the symbolic links at the end of `path`, also to a target that is missing.
FileStatus FollowLinks(FileCalls& calls, std::string& path) {
  for (int i = 0; i < kMaxLinks; ++i) {
    std::string target;
    const int result = calls.ReadLink(path, target);
    if (result == -EINVAL || result == -ENOENT) return {};
    if (result < 0) return Failure(calls.LastError());
    const bool absolute = target.find_first_of(kSeparators) == 0;
    path = (absolute ? "" : FolderOf(path)).append(target);
  }
  return Failure("The symbolic link leads nowhere.");
}

struct Target {
  std::string path;  // no symbolic link
  bool exists = false;
};

FileStatus FindTarget(FileCalls& calls, const std::string& path, Target& target) {
  target.path = path;
  FileStatus status = FollowLinks(calls, target.path);
  if (!status.Ok()) return status;

  FileInfo info;
  const int result = calls.Info(target.path, info);
  if (result == -ENOENT) return {};
  if (result < 0) return Failure(calls.LastError());
  if (info.kind != FileKind::kRegular) return WrongKind(info.kind);
  target.exists = true;
  // A rename asks the folder only; a write-protected file must stay as it is all the same.
  return WriteStatusOf(calls, calls.MayWrite(target.path));
}

/// Writes a verified temporary file into `folder`, which is gone again on a failure.
FileStatus WriteTemporary(FileCalls& calls, const std::string& folder,
                          const std::string& accessFrom, std::span<const std::byte> bytes,
                          std::string& temporary) {
  constexpr unsigned kUsualMode = 0666;
  constexpr unsigned kOwnMode = 0600;  // until KeepAccess has set the right one
  const unsigned mode = accessFrom.empty() ? kUsualMode : kOwnMode;
  const int handle = WithNewName(
      folder, temporary, [&](const std::string& name) { return calls.CreateNew(name, mode); });
  if (handle < 0) return Failure(calls.LastError());

  if (!accessFrom.empty()) calls.KeepAccess(handle, accessFrom);
  FileStatus status = WriteBytes(calls, handle, bytes);
  if (status.Ok()) status = WriteStatusOf(calls, calls.Sync(handle));
  CloseWritten(calls, handle, status);
  if (status.Ok()) status = CompareWithFile(calls, temporary, bytes);
  if (!status.Ok()) calls.Unlink(temporary);
  return status;
}

/// A file system that cannot sync a folder is no failure: nothing else could be done.
FileStatus SyncFolder(FileCalls& calls, const std::string& folder) {
  const std::string path = folder.empty() ? "." : folder;
  const int result = calls.SyncFolder(path);
  const bool unsupported = result == -EINVAL || result == -ENOTSUP || result == -ENOSYS;
  return unsupported ? FileStatus{} : WriteStatusOf(calls, result);
}

/// The rename is the one step that counts. All that can be wrong with the content shows
/// before it, on the temporary file; after it only the folder's sync can still fail. The
/// old file therefore keeps a second name until then and goes back on such a failure.
/// Where that is impossible too (no hard links, or the system fails twice) the new file
/// stays and counts as written: it is whole and was read back, and a power cut could
/// bring back nothing worse than the old one. So the status always tells which of the
/// two files is there, and no other ever is.
FileStatus Replace(FileCalls& calls, const Target& target, const std::string& temporary) {
  const std::string folder = FolderOf(target.path);
  std::string kept;
  bool canGoBack = true;
  if (target.exists) {
    canGoBack = WithNewName(folder, kept, [&](const std::string& name) {
                  return calls.Link(target.path, name);
                }) >= 0;
  }
  FileStatus status = WriteStatusOf(calls, calls.Rename(temporary, target.path));
  if (!status.Ok()) {
    calls.Unlink(temporary);
  } else {
    status = SyncFolder(calls, folder);
    if (!status.Ok()) {
      const bool wentBack = canGoBack && (target.exists ? calls.Rename(kept, target.path)
                                                        : calls.Unlink(target.path)) >= 0;
      if (wentBack) return status;
      status = {};
    }
  }
  if (target.exists && canGoBack) calls.Unlink(kept);
  return status;
}

/// A new file gets the permissions of `accessFrom`, or those of the user's mask when that is empty.
FileStatus WriteDurably(FileCalls& calls, const std::string& path, const std::string& accessFrom,
                        std::span<const std::byte> bytes) {
  Target target;
  FileStatus status = FindTarget(calls, path, target);
  if (!status.Ok()) return status;
  std::string temporary;
  status = WriteTemporary(calls, FolderOf(target.path), target.exists ? target.path : accessFrom,
                          bytes, temporary);
  return status.Ok() ? Replace(calls, target, temporary) : status;
}

}  // namespace

FileContents ReadFile(FileCalls& calls, const std::string& path, std::size_t limit) {
  FileContents contents;
  const int handle = calls.OpenToRead(path);
  contents.status = StatusOf(calls, handle);
  if (handle < 0) return contents;
  contents.status = ReadBytes(calls, handle, limit, contents);
  calls.Close(handle);
  if (!contents.status.Ok()) contents.bytes.clear();
  return contents;
}

bool IsGone(FileCalls& calls, const std::string& path) {
  FileInfo info;
  return StatusOf(calls, calls.Info(path, info)).failure == FileFailure::kMissing;
}

bool FileExists(FileCalls& calls, const std::string& path) {
  FileInfo info;
  return calls.Info(path, info) >= 0 && info.kind != FileKind::kFolder;
}

bool SameFile(FileCalls& calls, const std::string& a, const std::string& b) {
  FileInfo infoA;
  FileInfo infoB;
  return calls.Info(a, infoA) >= 0 && calls.Info(b, infoB) >= 0 && infoA.device == infoB.device &&
         infoA.number == infoB.number;
}

FileStatus WriteFileDurably(FileCalls& calls, const std::string& path,
                            std::span<const std::byte> bytes) {
  return WriteDurably(calls, path, "", bytes);
}

FileStatus CopyFileDurably(FileCalls& calls, const std::string& from, const std::string& to) {
  if (SameFile(calls, from, to)) return {};
  const FileContents contents = ReadFile(calls, from, kCopyLimit);
  if (!contents.status.Ok()) return contents.status;
  if (contents.size > kCopyLimit) return Failure("The file is too large to be copied.");
  return WriteDurably(calls, to, from, contents.bytes);
}

FileStatus WriteFileInPlace(FileCalls& calls, const std::string& path,
                            std::span<const std::byte> bytes) {
  return WriteFileInPlace(calls, path, std::span(&bytes, 1));
}

FileStatus WriteFileInPlace(FileCalls& calls, const std::string& path,
                            std::span<const std::span<const std::byte>> pieces) {
  const int handle = calls.OpenInPlace(path);
  if (handle < 0) return Failure(calls.LastError());
  FileStatus status;
  for (const auto piece : pieces) {
    if (status.Ok()) status = WriteBytes(calls, handle, piece);
  }
  CloseWritten(calls, handle, status);
  return status;
}

FileStatus MoveFileOver(FileCalls& calls, const std::string& from, const std::string& to) {
  return StatusOf(calls, calls.Rename(from, to));
}

FileStatus DeleteFile(FileCalls& calls, const std::string& path) {
  return StatusOf(calls, calls.Unlink(path));
}

FolderListing ListFiles(FileCalls& calls, const std::string& folder) {
  FolderListing listing;
  listing.status = StatusOf(calls, calls.ListFolder(folder, listing.names));
  if (!listing.status.Ok()) listing.names.clear();
  std::erase_if(listing.names, [&](const std::string& name) {
    FileInfo info;
    return calls.Info(folder + "/" + name, info) < 0 || info.kind != FileKind::kRegular;
  });
  std::ranges::sort(listing.names);
  return listing;
}

FileStatus CreatePrivateFolder(FileCalls& calls, const std::string& path) {
  const int made = calls.MakeFolder(path, kPrivateMode);
  if (made < 0 && made != -EEXIST) return Failure(calls.LastError());
  return WriteStatusOf(calls, calls.ClaimFolder(path));
}

FileStatus CreateFolders(FileCalls& calls, const std::string& path) {
  int made = calls.MakeFolder(path, kPrivateMode);
  const std::string above = FolderOf(path);
  if (made == -ENOENT && above.size() > 1) {
    const FileStatus status = CreateFolders(calls, above.substr(0, above.size() - 1));
    if (!status.Ok()) return status;
    made = calls.MakeFolder(path, kPrivateMode);
  }
  return made == -EEXIST ? FileStatus{} : WriteStatusOf(calls, made);
}

void SweepLeftOvers(FileCalls& calls, const std::string& folder) {
  std::vector<std::string> names;
  calls.ListFolder(folder.empty() ? "." : folder, names);
  for (const std::string& name : names) {
    if (IsLeftOver(name)) DeleteFile(calls, folder + name);
  }
}

std::string UnlikelyName() {
  static std::atomic<std::uint64_t> counter = 0;
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  // Names need not be secret, only rare: nothing here ever opens one that exists.
  std::uint64_t mix = static_cast<std::uint64_t>(now) + (++counter * 0x9E3779B97F4A7C15U);
  mix = (mix ^ (mix >> 30U)) * 0xBF58476D1CE4E5B9U;
  mix = (mix ^ (mix >> 27U)) * 0x94D049BB133111EBU;
  mix ^= mix >> 31U;
  std::string name;
  for (int i = 0; i < 16; ++i, mix >>= 4U) name += "0123456789abcdef"[mix & 15U];
  return name;
}

}  // namespace vesmora
