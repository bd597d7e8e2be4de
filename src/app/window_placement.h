// Where the window stood, kept between runs.
#pragma once

#include <span>

#include "platform/settings.h"
#include "platform/window_port.h"

namespace vesmora {

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
