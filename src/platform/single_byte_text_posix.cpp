// Windows-1252, the code page most of the maps were written with.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/single_byte_text.h"
#include "platform/utf8.h"

namespace vesmora {
namespace {

constexpr std::uint32_t kFirstOdd = 0x80;  // below and from 0xA0 on, byte and character
constexpr std::uint32_t kEndOdd = 0xA0;    // have the same number

/// The five bytes without a character stand for the control characters of their number.
constexpr std::array<std::uint16_t, kEndOdd - kFirstOdd> kOddCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char SingleByteOf(std::uint32_t character) {
  if (character < kFirstOdd || (character >= kEndOdd && character <= 0xFF)) {
    return ByteOf(character);
  }
  const auto found = std::ranges::find(kOddCharacters, character);
  if (found == kOddCharacters.end()) return '?';
  return ByteOf(kFirstOdd + static_cast<std::uint32_t>(found - kOddCharacters.begin()));
}

}  // namespace

std::string ToUtf8(std::string_view singleByte) {
  std::string text;
  for (const char c : singleByte) {
    const std::uint32_t byte = static_cast<unsigned char>(c);
    const bool odd = byte >= kFirstOdd && byte < kEndOdd;
    AppendUtf8(text, odd ? kOddCharacters[byte - kFirstOdd] : byte);
  }
  return text;
}

std::string FromUtf8(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) text += SingleByteOf(TakeUtf8Character(utf8));
  return text;
}

}  // namespace vesmora
