// The system's calls take UTF-16, the program's texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace vesmora {

/// What is no valid text becomes U+FFFD, which no file is named by.
std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view wide);

/// A path as those calls want it that do not take both kinds of slash.
std::wstring WideWithBackslashes(std::string_view path);

/// The system's words for one of its error numbers, without a line end.
std::string ErrorText(unsigned long error);

}  // namespace vesmora
