#include "platform/file_errors_windows.h"

#include <windows.h>

#include <cerrno>

namespace vesmora {
namespace {

constexpr unsigned long kDiskQuotaExceeded = 1295;  // not in every set of headers

}  // namespace

int ErrnoOf(unsigned long error) {
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
    case ERROR_ACCESS_DENIED:
    case ERROR_DELETE_PENDING:
    case ERROR_CANT_ACCESS_FILE:
      return EACCES;
    case ERROR_PRIVILEGE_NOT_HELD:
      return EPERM;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      return EBUSY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_CANT_RESOLVE_FILENAME:
      return ELOOP;
    case ERROR_NOT_SAME_DEVICE:
      return EXDEV;
    case ERROR_TOO_MANY_OPEN_FILES:
      return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_INVALID_PARAMETER:
      return EINVAL;
    case ERROR_INVALID_HANDLE:
      return EBADF;
    case ERROR_INVALID_FUNCTION:
    case ERROR_NOT_SUPPORTED:
    case ERROR_CALL_NOT_IMPLEMENTED:
      return ENOTSUP;
    default:
      return EIO;
  }
}

}  // namespace vesmora
