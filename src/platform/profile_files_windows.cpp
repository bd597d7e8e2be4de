#include <windows.h>

#include "platform/profile_files.h"
#include "platform/wide_text_windows.h"

namespace vesmora {
namespace {

/// The system looks for a bare name in its own folder, so paths are always whole.
std::wstring PathFor(const std::string& path) { return Wide(AbsolutePath(path)); }

}  // namespace

std::int32_t ProfileFiles::ReadInt(const std::string& path, const std::string& section,
                                   const std::string& key, std::int32_t fallback) const {
  const UINT value = GetPrivateProfileIntW(Wide(section).c_str(), Wide(key).c_str(), fallback,
                                           PathFor(path).c_str());
  return static_cast<std::int32_t>(value);
}

FileStatus ProfileFiles::Write(const std::string& path, const std::string& section,
                               const std::string& key, const std::string& value) {
  const FileContents old = ReadProfile(files_, path);
  if (old.status.failure == FileFailure::kError) return old.status;
  const bool isNew = old.status.failure == FileFailure::kMissing;
  if (!isNew && files_.MayWrite(path) < 0) return {FileFailure::kError, files_.LastError()};

  const std::wstring widePath = PathFor(path);
  const BOOL done = WritePrivateProfileStringW(Wide(section).c_str(), Wide(key).c_str(),
                                               Wide(value).c_str(), widePath.c_str());
  const std::string reason = done != 0 ? std::string() : ErrorText(GetLastError());
  // The game reads the file itself, not what the system keeps of it in memory.
  WritePrivateProfileStringW(nullptr, nullptr, nullptr, widePath.c_str());
  if (done != 0) return {};

  // A full disk may have cost the tail of the file.
  if (isNew) {
    files_.Unlink(path);
  } else if (ReadProfile(files_, path).bytes != old.bytes) {
    static_cast<void>(WriteFileDurably(files_, path, old.bytes));  // the first reason counts
  }
  return {FileFailure::kError, reason};
}

}  // namespace vesmora
