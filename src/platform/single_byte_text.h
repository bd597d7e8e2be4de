// The map's texts are single-byte strings, the program's are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace vesmora {

/// Every byte has a character, and FromUtf8 gives the same byte back.
std::string ToUtf8(std::string_view singleByte);

/// Characters that the single-byte set lacks, and bytes that are no UTF-8, become '?'.
std::string FromUtf8(std::string_view utf8);

}  // namespace vesmora
