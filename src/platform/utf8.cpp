#include "platform/utf8.h"

#include <cstddef>

namespace vesmora {

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

std::uint32_t TakeUtf8Character(std::string_view& text) {
  const std::uint32_t first = static_cast<unsigned char>(text.front());
  text.remove_prefix(1);
  if (first < 0x80) return first;
  if (first < 0xC2 || first > 0xF4) return kNoCharacter;
  const std::size_t more = first < 0xE0 ? 1 : first < 0xF0 ? 2 : 3;
  if (text.size() < more) return kNoCharacter;
  std::uint32_t character = first & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const std::uint32_t next = static_cast<unsigned char>(text[i]);
    if ((next & 0xC0U) != 0x80U) return kNoCharacter;
    character = character << 6U | (next & 0x3FU);
  }
  const bool tooLong =
      (more == 2 && character < 0x800) || (more == 3 && character < 0x10000);  // in bytes
  if (tooLong || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) {
    return kNoCharacter;
  }
  text.remove_prefix(more);
  return character;
}

}  // namespace vesmora
