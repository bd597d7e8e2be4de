#include "platform/text.h"

#include <algorithm>

#include "platform/single_byte_text.h"

namespace vesmora {
namespace {

char LowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string LowerCaseSingleByte(std::string_view text) { return FromUtf8(LowerCase(ToUtf8(text))); }

std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string_view TakeUpTo(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
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
