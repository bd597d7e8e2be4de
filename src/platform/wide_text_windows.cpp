#include "platform/wide_text_windows.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace vesmora {

std::wstring Wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), length);
  return wide;
}

std::string Utf8(std::wstring_view wide) {
  const int size = static_cast<int>(wide.size());
  const int length =
      WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
  return utf8;
}

std::wstring WideWithBackslashes(std::string_view path) {
  std::wstring wide = Wide(path);
  std::ranges::replace(wide, L'/', L'\\');
  return wide;
}

std::string ErrorText(unsigned long error) {
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  std::array<wchar_t, 512> buffer = {};
  const DWORD length = FormatMessageW(kFlags, nullptr, error, 0, buffer.data(),
                                      static_cast<DWORD>(buffer.size()), nullptr);
  std::wstring_view text(buffer.data(), length);
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' ')) {
    text.remove_suffix(1);
  }
  return text.empty() ? "System error " + std::to_string(error) + "." : Utf8(text);
}

}  // namespace vesmora
