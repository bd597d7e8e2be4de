// Properties as the panel's boxes show and read them: decimal point whatever the
// locale, and any text is some number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "document/number_text.h"

namespace vesmora {

/// The number at the start of a text; 0 when there is none.
double LeadingNumber(std::string_view text);

/// A visibility byte as a percentage, and back; an empty text is fully visible.
std::string VisibilityText(std::uint8_t level);
std::uint8_t VisibilityLevel(std::string_view text);

}  // namespace vesmora
