// One of the system's code pages, as a set of characters for single bytes.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace vesmora {

/// Every string of bytes becomes text and comes back from it unchanged, whatever the page:
/// a byte without a character has one of U+F850 to U+F8CF, which no page uses. Pairs of
/// bytes are taken where the page has them. UTF-8 is no such set; Windows-1252 takes its
/// place.
class CodePage {
 public:
  explicit CodePage(unsigned number);

  std::string ToUtf8(std::string_view bytes) const;
  /// What the page lacks, and what is no UTF-8, becomes '?': nothing similar instead.
  std::string FromUtf8(std::string_view utf8) const;

 private:
  /// The character of one or two bytes; 0 when there is none that leads back to them.
  char16_t CharacterOf(std::string_view bytes) const;
  /// Empty when there are none.
  std::string BytesOf(std::uint32_t character) const;

  unsigned number_;
  std::array<char16_t, 256> characters_ = {};  // of single bytes
};

}  // namespace vesmora
