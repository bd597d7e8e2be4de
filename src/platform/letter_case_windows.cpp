#include <windows.h>

#include <string>
#include <string_view>

#include "platform/text.h"
#include "platform/wide_text_windows.h"

namespace vesmora {

std::string UpperCase(std::string_view text) {
  std::wstring wide = Wide(text);
  CharUpperBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return Utf8(wide);
}

std::string LowerCase(std::string_view text) {
  std::wstring wide = Wide(text);
  CharLowerBuffW(wide.data(), static_cast<DWORD>(wide.size()));
  return Utf8(wide);
}

}  // namespace vesmora
