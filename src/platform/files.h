// Reading and writing files. Every operation goes through FileCalls, one method
// for each of the system's calls, so that tests can make any of them fail.
// Paths are UTF-8. Failures come back as a FileStatus, never as an exception.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/file_calls.h"

namespace vesmora {

enum class FileFailure { kNone, kMissing, kError };

struct FileStatus {
  FileFailure failure = FileFailure::kNone;
  std::string reason;  // the system's words, for the user

  bool Ok() const { return failure == FileFailure::kNone; }
};

struct FileContents {
  FileStatus status;
  std::vector<std::byte> bytes;
  std::uint64_t size = 0;  // of the whole file, also when `bytes` is cut
};

/// Reads at most `limit` bytes of a regular file. Anything else (a folder, a pipe, a
/// device) is an error and is never waited for.
FileContents ReadFile(FileCalls& calls, const std::string& path, std::size_t limit);

/// As the current folder completes it; `path` as it is when the system cannot tell.
std::string AbsolutePath(const std::string& path);

/// True when there is certainly nothing of that name.
bool IsGone(FileCalls& calls, const std::string& path);

/// A folder is no file.
bool FileExists(FileCalls& calls, const std::string& path);

/// Whether both exist and are one file, be it through links.
bool SameFile(FileCalls& calls, const std::string& a, const std::string& b);

/// Replaces `path` as a whole: a temporary file beside it is written, synced, read back
/// and compared, renamed over it, and the folder synced. On any failure the old file is
/// what it was, and no temporary file stays as long as it can be deleted. A symbolic link
/// stays and its target is replaced; owner and permissions are kept as far as allowed.
[[nodiscard]] FileStatus WriteFileDurably(FileCalls& calls, const std::string& path,
                                          std::span<const std::byte> bytes);

/// Gives `to` the content of the regular file `from`, written as WriteFileDurably does.
/// Does nothing and succeeds when both are the same file.
[[nodiscard]] FileStatus CopyFileDurably(FileCalls& calls, const std::string& from,
                                         const std::string& to);

/// Writes over the start of `path` without cutting a longer file's tail and
/// without syncing: for files whose loss costs nothing but time. A failure may
/// leave the file partly written.
[[nodiscard]] FileStatus WriteFileInPlace(FileCalls& calls, const std::string& path,
                                          std::span<const std::byte> bytes);
/// The same for bytes that lie in several pieces.
[[nodiscard]] FileStatus WriteFileInPlace(FileCalls& calls, const std::string& path,
                                          std::span<const std::span<const std::byte>> pieces);

/// Gives the file `from` the name `to`, replacing what stood there. Without syncing.
[[nodiscard]] FileStatus MoveFileOver(FileCalls& calls, const std::string& from,
                                      const std::string& to);

/// Without syncing. A file that is not there is a failure, kMissing.
FileStatus DeleteFile(FileCalls& calls, const std::string& path);

struct FolderListing {
  FileStatus status;
  std::vector<std::string> names;  // regular files only, sorted by their bytes
};

/// What cannot be looked at is left out; without any names when the folder itself cannot be read.
FolderListing ListFiles(FileCalls& calls, const std::string& folder);

/// Makes `path`, or takes it as it is, as a folder that only this user can enter. Fails
/// when something foreign sits there: a link, a file, another user's folder, or one in
/// which others have planted something.
FileStatus CreatePrivateFolder(FileCalls& calls, const std::string& path);

/// Makes `path`, without a slash at its end, and what is missing of the folders above it, for this
/// user only. What is there is taken as it is.
FileStatus CreateFolders(FileCalls& calls, const std::string& path);

/// Deletes the temporary files in `folder` whose writers did not live to rename them.
void SweepLeftOvers(FileCalls& calls, const std::string& folder);

/// 16 characters, different at every call, for the names of temporary files.
std::string UnlikelyName();

}  // namespace vesmora
