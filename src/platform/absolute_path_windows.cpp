#include <windows.h>

#include "platform/files.h"
#include "platform/wide_text_windows.h"

namespace vesmora {

// The system knows about each drive's current folder and servers' shares, and turns
// slashes into backslashes.
std::string AbsolutePath(const std::string& path) {
  const std::wstring wide = Wide(path);
  std::wstring absolute(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  const DWORD length =
      GetFullPathNameW(wide.c_str(), static_cast<DWORD>(absolute.size()), absolute.data(), nullptr);
  if (length == 0 || length >= absolute.size()) return path;
  absolute.resize(length);
  return Utf8(absolute);
}

}  // namespace vesmora
