#include <windows.h>

#include "platform/temp_folder.h"
#include "platform/wide_text_windows.h"

namespace vesmora {

// The system gives each user a folder of their own.
std::string PrivateTempFolder(FileCalls& calls, FileStatus& status) {
  std::wstring path(MAX_PATH + 1, L'\0');
  const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
  if (length == 0 || length > path.size()) {
    status = {FileFailure::kError, ErrorText(GetLastError())};
    return "";
  }
  path.resize(length);
  const std::string folder = Utf8(path);
  FileInfo info;
  if (calls.Info(folder, info) < 0) {
    status = {FileFailure::kError, calls.LastError()};
    return "";
  }
  status = {};
  return folder;
}

// Nobody can open the file a second time, and the system closes and deletes it when the
// process ends.
bool HoldFolder(const std::string& folder) {
  constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE;
  const HANDLE handle = CreateFileW(Wide(folder + "Vesmora-in-use").c_str(), GENERIC_WRITE, 0,
                                    nullptr, OPEN_ALWAYS, kFlags, nullptr);
  return handle != INVALID_HANDLE_VALUE;
}

}  // namespace vesmora
