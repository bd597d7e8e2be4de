// Cuts lines to a window before they reach a painter, so that coordinates of any
// size, infinite or not a number, cost nothing and never overflow whole pixels.
#pragma once

#include <cstdint>
#include <optional>

#include "view/canvas.h"

namespace vesmora {

struct PixelLine {
  int x1;
  int y1;
  int x2;
  int y2;

  bool operator==(const PixelLine&) const = default;
};

/// The whole pixel that a position is painted at. Halves go up everywhere, unlike in all other
/// roundings, so that equal steps of the world are equal steps on the screen.
int ToPixel(double position);

/// The part of a line that crosses 0..width, 0..height (give or take a margin
/// that hides cut ends), in whole pixels.
std::optional<PixelLine> ClipLine(ScreenPoint from, ScreenPoint to, int width, int height);

/// True when some part of the circle's outline can be seen.
bool CircleTouches(ScreenPoint center, int radius, int width, int height);

}  // namespace vesmora
