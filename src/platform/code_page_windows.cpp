#include "platform/code_page_windows.h"

#include <windows.h>

#include "platform/utf8.h"

namespace vesmora {
namespace {

constexpr unsigned kWesternEurope = 1252;
constexpr std::uint32_t kStandIns = 0xF850 - 0x80;  // only bytes from 0x80 on need one

unsigned char Number(char byte) { return static_cast<unsigned char>(byte); }

}  // namespace

CodePage::CodePage(unsigned number) : number_(number == CP_UTF8 ? kWesternEurope : number) {
  for (unsigned i = 0; i < characters_.size(); ++i) {
    const char byte = ByteOf(i);
    const char16_t character = i == 0 ? u'\0' : CharacterOf({&byte, 1});
    const bool isMissing = character == 0 && i != 0;
    characters_[i] = isMissing ? static_cast<char16_t>(kStandIns + i) : character;
  }
}

char16_t CodePage::CharacterOf(std::string_view bytes) const {
  std::array<wchar_t, 4> wide = {};
  const int length = MultiByteToWideChar(number_, MB_ERR_INVALID_CHARS, bytes.data(),
                                         static_cast<int>(bytes.size()), wide.data(),
                                         static_cast<int>(wide.size()));
  const bool isOne = length == 1 && BytesOf(wide[0]) == bytes;
  return isOne ? static_cast<char16_t>(wide[0]) : u'\0';
}

std::string CodePage::BytesOf(std::uint32_t character) const {
  if (character == 0 || character > 0xFFFF) return "";
  const auto wide = static_cast<wchar_t>(character);
  std::array<char, 4> bytes = {};
  BOOL isMissing = FALSE;
  const int length = WideCharToMultiByte(number_, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, &isMissing);
  if (length <= 0 || isMissing != FALSE) return "";
  return {bytes.data(), static_cast<std::size_t>(length)};
}

std::string CodePage::ToUtf8(std::string_view bytes) const {
  std::string text;
  while (!bytes.empty()) {
    std::size_t count = 1;
    char16_t character = characters_[Number(bytes.front())];
    if (bytes.size() > 1 && IsDBCSLeadByteEx(number_, Number(bytes.front())) != 0) {
      if (const char16_t pair = CharacterOf(bytes.substr(0, 2)); pair != 0) {
        character = pair;
        count = 2;
      }
    }
    AppendUtf8(text, character);
    bytes.remove_prefix(count);
  }
  return text;
}

std::string CodePage::FromUtf8(std::string_view utf8) const {
  std::string bytes;
  while (!utf8.empty()) {
    const std::uint32_t character = TakeUtf8Character(utf8);
    const std::uint32_t byte = character - kStandIns;
    if (character == 0) {
      bytes += '\0';
    } else if (byte < characters_.size() && characters_[byte] == character) {
      bytes += ByteOf(byte);
    } else {
      const std::string found = BytesOf(character);
      bytes += found.empty() ? "?" : found;
    }
  }
  return bytes;
}

}  // namespace vesmora
