#include "platform/profile_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "platform/text.h"

namespace vesmora {
namespace {

constexpr std::string_view kBlanks = " \t\v\f";
constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

/// How a file's bytes make up characters. All that matters in a profile is ASCII, so a
/// character is a byte here, or '?', and positions only need to be scaled.
struct Encoding {
  std::size_t start = 0;  // bytes of the mark
  std::size_t width = 1;  // bytes a character
};

Encoding EncodingOf(std::string_view text) {
  if (text.starts_with(kUtf16Mark)) return {kUtf16Mark.size(), 2};
  if (text.starts_with(kUtf8Mark)) return {kUtf8Mark.size(), 1};
  return {};
}

std::string Narrowed(std::string_view text, Encoding encoding) {
  text.remove_prefix(encoding.start);
  std::string characters;
  for (std::size_t i = 0; i + encoding.width <= text.size(); i += encoding.width) {
    const bool isAscii =
        static_cast<unsigned char>(text[i]) < 0x80 && (encoding.width == 1 || text[i + 1] == '\0');
    characters += isAscii ? text[i] : '?';
  }
  return characters;
}

std::string Widened(std::string_view ascii, Encoding encoding) {
  std::string bytes;
  for (const char c : ascii) bytes.append(1, c).append(encoding.width - 1, '\0');
  return bytes;
}

/// A part of the text, as positions in it.
struct Part {
  std::size_t begin = 0;
  std::size_t end = 0;

  bool Empty() const { return begin == end; }
  std::string_view Of(std::string_view text) const { return text.substr(begin, end - begin); }
};

Part Trimmed(std::string_view text, Part part) {
  const auto isBlank = [&](std::size_t at) {
    return kBlanks.find(text[at]) != std::string_view::npos;
  };
  while (!part.Empty() && isBlank(part.begin)) ++part.begin;
  while (!part.Empty() && isBlank(part.end - 1)) --part.end;
  return part;
}

/// The name of the section that a line opens.
std::optional<std::string_view> SectionName(std::string_view text, Part line) {
  if (line.Empty() || text[line.begin] != '[') return std::nullopt;
  const std::size_t close = line.Of(text).rfind(']');
  if (close == std::string_view::npos) return std::nullopt;
  return line.Of(text).substr(1, close - 1);
}

/// What was found of a key on a walk through the lines.
struct Place {
  std::optional<Part> value;
  bool hasSection = false;
  std::size_t sectionEnd = 0;  // behind its last line that is not blank, line end excluded
};

Place FindKey(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find_first_of(kLineEnds, at), text.size());
    const Part line = Trimmed(text, {at, end});
    at = end + 1;
    if (const auto name = SectionName(text, line)) {
      if (place.hasSection) return place;
      place.hasSection = EqualsIgnoringCase(*name, section);
    }
    if (!place.hasSection || line.Empty()) continue;
    place.sectionEnd = end;
    const std::size_t sign = line.Of(text).find('=');
    if (sign == std::string_view::npos) continue;
    const Part name = Trimmed(text, {line.begin, line.begin + sign});
    if (!EqualsIgnoringCase(name.Of(text), key)) continue;
    place.value = Trimmed(text, {line.begin + sign + 1, line.end});
    return place;
  }
  return place;
}

/// As in the text's first line.
std::string_view LineEnd(std::string_view text) {
  const std::size_t end = text.find_first_of(kLineEnds);
  if (end == std::string_view::npos || text.substr(end).starts_with("\r\n")) return "\r\n";
  return text.substr(end, 1);
}

struct Change {
  Part replaced;
  std::string by;
};

Change AddedKey(std::string_view text, const Place& place, std::string_view section,
                const std::string& line) {
  const std::string lineEnd(LineEnd(text));
  if (place.hasSection) return {{place.sectionEnd, place.sectionEnd}, lineEnd + line};
  const bool isOpen = !text.empty() && kLineEnds.find(text.back()) == std::string_view::npos;
  std::string added = isOpen ? lineEnd : "";
  added.append("[").append(section).append("]").append(lineEnd).append(line).append(lineEnd);
  return {{text.size(), text.size()}, added};
}

}  // namespace

std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key) {
  const std::string characters = Narrowed(text, EncodingOf(text));
  const Place place = FindKey(characters, section, key);
  if (!place.value) return std::nullopt;
  std::string_view value = place.value->Of(characters);
  constexpr std::string_view kQuotes = "\"'";
  const bool isQuoted = value.size() >= 2 && value.front() == value.back() &&
                        kQuotes.find(value.front()) != std::string_view::npos;
  if (isQuoted) value = value.substr(1, value.size() - 2);
  return std::string(value);
}

std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
  const Encoding encoding = EncodingOf(text);
  const std::string characters = Narrowed(text, encoding);
  const Place place = FindKey(characters, section, key);
  const std::string line = std::string(key) + "=" + std::string(value);
  const Change change = place.value ? Change{*place.value, std::string(value)}
                                    : AddedKey(characters, place, section, line);
  const auto byteOf = [encoding](std::size_t at) { return encoding.start + at * encoding.width; };
  std::string changed(text.substr(0, byteOf(change.replaced.begin)));
  changed += Widened(change.by, encoding);
  changed += text.substr(byteOf(change.replaced.end));
  return changed;
}

std::int32_t ProfileNumber(std::string_view value) {
  if (value.starts_with('+')) value.remove_prefix(1);
  std::int32_t number = 0;
  const auto result = std::from_chars(value.data(), value.data() + value.size(), number);
  if (result.ec != std::errc::result_out_of_range) return number;
  return value.starts_with('-') ? std::numeric_limits<std::int32_t>::min()
                                : std::numeric_limits<std::int32_t>::max();
}

}  // namespace vesmora
