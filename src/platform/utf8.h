// UTF-8, a character at a time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vesmora {

constexpr std::uint32_t kNoCharacter = 0xFFFFFFFF;

/// The lowest eight bits, as the texts hold them.
constexpr char ByteOf(std::uint32_t value) {
  return static_cast<char>(static_cast<unsigned char>(value));
}

/// `character` is below 0x10000.
void AppendUtf8(std::string& text, std::uint32_t character);

/// Takes one character off `text`, which is not empty; or one byte, giving kNoCharacter,
/// when none starts there.
std::uint32_t TakeUtf8Character(std::string_view& text);

}  // namespace vesmora
