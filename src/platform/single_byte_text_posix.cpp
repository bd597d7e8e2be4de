// Windows-1252, the code page most of the maps were written with.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/single_byte_text.h"

namespace vesmora {
namespace {

constexpr std::uint32_t kFirstOdd = 0x80;  // below and from 0xA0 on, byte and character
constexpr std::uint32_t kEndOdd = 0xA0;    // have the same number
constexpr std::uint32_t kInvalid = 0xFFFFFFFF;

/// The five bytes without a character stand for the control characters of their number.
constexpr std::array<std::uint16_t, kEndOdd - kFirstOdd> kOddCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(std::uint32_t value) { return static_cast<char>(static_cast<unsigned char>(value)); }

/// `character` is below 0x10000.
void AppendUtf8(std::string& text, std::uint32_t character) {
  if (character < 0x80) {
    text += ByteOf(character);
  } else if (character < 0x800) {
    text += ByteOf(0xC0U | character >> 6U);
    text += ByteOf(0x80U | (character & 0x3FU));
  } else {
    text += ByteOf(0xE0U | character >> 12U);
    text += ByteOf(0x80U | (character >> 6U & 0x3FU));
    text += ByteOf(0x80U | (character & 0x3FU));
  }
}

/// Takes one character off `text`, or one byte and kInvalid when none starts there.
std::uint32_t TakeCharacter(std::string_view& text) {
  const std::uint32_t first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return first;
  if (first < 0xC2 || first > 0xF4) return kInvalid;
  const std::size_t more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  if (text.size() < more) return kInvalid;
  std::uint32_t character = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const std::uint32_t next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0U) != 0x80U) return kInvalid;
    character = character << 6U | (next & 0x3FU);
  }
  const bool tooLong =
      (more == 2 && character < 0x800) || (more == 3 && character < 0x10000);  // in bytes
  if (tooLong || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) {
    return kInvalid;
  }
  text.remove_prefix(more);
  return character;
}

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
  while (!utf8.empty()) text += SingleByteOf(TakeCharacter(utf8));
  return text;
}

}  // namespace vesmora
