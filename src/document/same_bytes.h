// Equality of records as files hold them: bit by bit, so that what is not a number equals itself.
#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

namespace vesmora {

template <typename Record>
bool HaveSameBytes(const Record& a, const Record& b) {
  static_assert(std::is_trivially_copyable_v<Record>);
  const auto bytes = std::as_bytes(std::span(&a, 1));
  return std::memcmp(bytes.data(), std::as_bytes(std::span(&b, 1)).data(), bytes.size()) == 0;
}

}  // namespace vesmora
