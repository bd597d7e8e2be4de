// Profile files as bytes: finding a key's value and setting it, nothing else touched.
// The rules are those of the system that the game comes from: the first section and the
// first key of a name count, names compare without regard to case, lines that start with
// ";" are comments, blanks around names and values do not count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vesmora {

/// The value as ASCII, other characters as '?', without blanks and quotes around it. `text`
/// is a whole file: single-byte, UTF-8 or, with its mark in front, UTF-16 with the low
/// byte first.
std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section,
                                            std::string_view key);

/// `text` with the key set; key and section are added where they are missing, in the
/// line ends that the file has. Section, key and value are ASCII.
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

/// The whole number that a value begins with; 0 when there is none. Saturates.
std::int32_t ProfileNumber(std::string_view value);

}  // namespace vesmora
