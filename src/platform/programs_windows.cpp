#include <windows.h>

#include <array>

#include "platform/programs.h"
#include "platform/wide_text_windows.h"

namespace vesmora {
namespace {

struct Search {
  std::wstring title;
  HWND found = nullptr;
};

/// Only a window that a person can see, or bring back from the task bar, counts: others
/// of the same title belong to the insides of programs.
BOOL CALLBACK Look(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);  // NOLINT(*-int-to-ptr)
  std::array<wchar_t, 256> title = {};
  const int length = GetWindowTextW(window, title.data(), static_cast<int>(title.size()));
  const bool isWanted =
      search.title == std::wstring_view(title.data(), static_cast<std::size_t>(length));
  if (!isWanted || IsWindowVisible(window) == 0) return TRUE;
  search.found = window;
  return FALSE;
}

class WindowsPrograms final : public Programs {
 public:
  bool ActivateWindow(const std::string& title) override {
    Search search{Wide(title)};
    EnumWindows(&Look, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) return false;
    if (IsIconic(search.found) != 0) ShowWindowAsync(search.found, SW_RESTORE);
    SetForegroundWindow(search.found);
    return true;
  }

  std::string Start(const std::string& path, const std::string& folder) override {
    const std::wstring widePath = WideWithBackslashes(path);
    const std::wstring wideFolder = WideWithBackslashes(folder);
    SHELLEXECUTEINFOW start = {};
    start.cbSize = sizeof(start);
    start.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    start.lpFile = widePath.c_str();
    start.lpDirectory = wideFolder.c_str();
    start.nShow = SW_HIDE;  // as they have always been started; they show themselves
    return ShellExecuteExW(&start) != 0 ? std::string() : ErrorText(GetLastError());
  }
};

}  // namespace

std::unique_ptr<Programs> SystemPrograms() { return std::make_unique<WindowsPrograms>(); }

}  // namespace vesmora
