// Small helpers for the texts that maps, paths and settings consist of.
#pragma once

#include <string>
#include <string_view>

namespace vesmora {

/// Without the blanks (only blanks) at both ends.
std::string_view TrimBlanks(std::string_view text);

/// The text before the first `separator`, or all of it; takes both off `text`.
std::string_view TakeUpTo(std::string_view& text, char separator);

/// ASCII letters only: what it is used on are file names' fixed parts.
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

/// UTF-8. On Windows the system's letters, elsewhere those of Windows-1252; all else stays.
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);

/// The same for the map's single-byte texts.
std::string LowerCaseSingleByte(std::string_view text);

/// True when the last characters are these, whatever their case.
bool EndsIgnoringCase(std::string_view text, std::string_view ending);

/// The part of a path behind its last slash of either kind.
std::string_view FileNamePart(std::string_view path);

/// The part of a path up to and including its last slash; empty for a bare name. Only the `slashes`
/// cut: on Linux a backslash may be part of a file's name, while people write paths with either.
std::string_view FolderPart(std::string_view path, std::string_view slashes = "/\\");

}  // namespace vesmora
