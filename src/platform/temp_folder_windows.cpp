#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/temp_folder.h"
#include "platform/wide_text_windows.h"

namespace vesmora {

// The system gives each user a folder of their own.
std::vector<std::string> SystemTempFolders() {
  std::wstring path(MAX_PATH + 1, L'\0');
  const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
  path.resize(length > path.size() ? 0 : length);
  return {Utf8(path)};
}

std::string OwnFolderName() { return {}; }

// Nobody can open the file a second time, and the system closes and deletes it when the
// process ends.
int HoldFolder(const std::string& folder) {
  constexpr DWORD kFlags = FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE;
  const HANDLE handle = CreateFileW(Wide(folder + "Vesmora-in-use").c_str(), GENERIC_WRITE, 0,
                                    nullptr, OPEN_ALWAYS, kFlags, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return kNotHeld;
  return _open_osfhandle(reinterpret_cast<intptr_t>(handle), _O_BINARY);
}

void LetFolderGo(int handle) { _close(handle); }

}  // namespace vesmora
