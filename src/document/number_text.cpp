#include "document/number_text.h"

#include <array>
#include <charconv>

namespace vesmora {

std::string NumberText(float value) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  return {digits.data(), end};
}

std::string Counted(std::size_t count, const std::string& one, const std::string& several) {
  return std::to_string(count) + " " + (count == 1 ? one : several);
}

}  // namespace vesmora
