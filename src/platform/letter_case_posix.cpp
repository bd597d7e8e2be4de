// Upper and lower case of the letters of Windows-1252.
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "platform/utf8.h"

namespace vesmora {
namespace {

/// A run of capitals and how far behind each its small letter lies.
struct LetterRange {
  std::uint32_t first;
  std::uint32_t last;
  std::uint32_t distance;
};

constexpr std::array<LetterRange, 7> kLetters = {{
    {'A', 'Z', 0x20},
    {0xC0, 0xD6, 0x20},  // up to the multiplication sign
    {0xD8, 0xDE, 0x20},
    {0x152, 0x152, 1},  // the ligature OE
    {0x160, 0x160, 1},  // S and Z with caron
    {0x17D, 0x17D, 1},
    {0x178, 0x178, 0xFFU - 0x178U},  // Y with diaeresis: its small letter lies before it
}};

std::uint32_t Capital(std::uint32_t character) {
  for (const auto& [first, last, distance] : kLetters) {
    const std::uint32_t capital = character - distance;
    if (capital >= first && capital <= last) return capital;
  }
  return character;
}

std::uint32_t SmallLetter(std::uint32_t character) {
  for (const auto& [first, last, distance] : kLetters) {
    if (character >= first && character <= last) return character + distance;
  }
  return character;
}

template <typename Change>
std::string ChangeLetters(std::string_view text, Change change) {
  std::string changed;
  while (!text.empty()) {
    const std::string_view before = text;
    const std::uint32_t character = TakeUtf8Character(text);
    const std::uint32_t other = change(character);
    if (other == character) {  // also what is no character
      changed += before.substr(0, before.size() - text.size());
    } else {
      AppendUtf8(changed, other);
    }
  }
  return changed;
}

}  // namespace

std::string UpperCase(std::string_view text) { return ChangeLetters(text, Capital); }

std::string LowerCase(std::string_view text) { return ChangeLetters(text, SmallLetter); }

}  // namespace vesmora
