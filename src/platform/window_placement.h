// Where the window stands.
#pragma once

#include <cstdint>
#include <optional>

namespace vesmora {

enum class WindowState : std::int16_t { kNormal = 0, kMinimised = 1, kMaximised = 2 };

/// Pixels. What is not set is left as it is.
struct WindowPlacement {
  std::optional<std::int16_t> state;
  std::optional<std::int16_t> top;
  std::optional<std::int16_t> left;
  std::optional<std::int16_t> width;
  std::optional<std::int16_t> height;
};

}  // namespace vesmora
