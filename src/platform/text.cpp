#include "platform/text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/single_byte_text.h"

namespace vesmora {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Shifts letters from one case's ranges to the other's: ASCII letters lie 0x20
/// apart, and so do, behind the lead byte 0xC3, accented ones.
std::string ShiftCase(std::string_view text, char firstAscii, unsigned char firstAccented,
                      int distance) {
  constexpr unsigned char kAccentLead = 0xC3;
  constexpr unsigned char kSignOffset = 0x17;  // the multiplication and division signs
  constexpr unsigned char kAccented = 0x1E;
  std::string result(text);
  bool isAccented = false;
  for (char& c : result) {
    const auto byte = static_cast<unsigned char>(c);
    const unsigned char offset = static_cast<unsigned char>(byte - firstAccented);
    const bool isLetter = isAccented ? offset <= kAccented && offset != kSignOffset
                                     : c >= firstAscii && c < firstAscii + 26;
    if (isLetter) c = static_cast<char>(c + distance);
    isAccented = byte == kAccentLead;
  }
  return result;
}

}  // namespace

std::string UpperCase(std::string_view text) { return ShiftCase(text, 'a', 0xA0, -0x20); }

std::string LowerCase(std::string_view text) { return ShiftCase(text, 'A', 0x80, 0x20); }

std::string LowerCaseSingleByte(std::string_view text) {
  // The capitals of Windows-1252 that LowerCase leaves as they are, two bytes each.
  constexpr std::array<std::pair<const char*, const char*>, 4> kOthers = {
      {{"\u0152", "\u0153"}, {"\u0160", "\u0161"}, {"\u017D", "\u017E"}, {"\u0178", "\u00FF"}}};
  std::string lower = LowerCase(ToUtf8(text));
  for (const auto& [capital, small] : kOthers) {
    while (lower.find(capital) != std::string::npos) lower.replace(lower.find(capital), 2, small);
  }
  return FromUtf8(lower);
}

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, LowerAscii, LowerAscii);
}

bool EndsIgnoringCase(std::string_view text, std::string_view ending) {
  if (text.size() < ending.size()) return false;
  return EqualsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

std::string_view FileNamePart(std::string_view path) {
  return path.substr(FolderPart(path).size());
}

std::string_view FolderPart(std::string_view path, std::string_view slashes) {
  return path.substr(0, path.find_last_of(slashes) + 1);  // npos + 1 is 0
}

}  // namespace vesmora
