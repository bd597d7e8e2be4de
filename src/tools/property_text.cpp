#include "tools/property_text.h"

#include <charconv>

#include "document/numbers.h"

namespace vesmora {

double LeadingNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t");
  if (start == std::string_view::npos) return 0;
  text.remove_prefix(start);
  if (text.starts_with('+')) text.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  return result.ec == std::errc() && std::isfinite(value) ? value : 0;
}

std::string VisibilityText(std::uint8_t level) {
  return std::to_string(RoundToInt32(level / 255.0 * 100)) + "%";
}

std::uint8_t VisibilityLevel(std::string_view text) {
  if (text.empty()) return 255;
  return RoundToUint8(LeadingNumber(text.substr(0, text.size() - 1)) / 100 * 255);
}

}  // namespace vesmora
