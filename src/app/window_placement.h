// Where the window stood, kept between runs.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/settings.h"

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

/// Texts that are no numbers, or none a number type can hold, count as not set; other
/// numbers are brought into 16 bits.
WindowPlacement LoadPlacement(Settings& settings);
void StorePlacement(const WindowPlacement& placement, Settings& settings);

struct ScreenRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const ScreenRect&) const = default;
};

/// No larger than the screen that the window lies on most, or the first one when
/// it lies on none, and moved inside that one when nobody could reach its title bar.
ScreenRect FitToScreens(ScreenRect window, std::span<const ScreenRect> screens);

}  // namespace vesmora
