#include "document/number_text.h"

#include <array>
#include <charconv>

namespace vesmora {

std::string NumberText(float value) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

}  // namespace vesmora
