#include "view/clip.h"

#include <algorithm>
#include <cmath>

#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr double kMargin = 16;  // pixels beyond each edge

/// The stretch of a line that is still inside, as fractions of its length.
struct Stretch {
  double start = 0;
  double end = 1;

  /// Cuts off what lies outside low..high on one axis; false when nothing is left.
  bool CutTo(double position, double delta, double low, double high) {
    if (delta == 0) return position >= low && position <= high;
    double enter = (low - position) / delta;
    double leave = (high - position) / delta;
    if (enter > leave) std::swap(enter, leave);
    start = std::max(start, enter);
    end = std::min(end, leave);
    return start <= end;
  }
};

bool IsInside(ScreenPoint point, double width, double height) {
  return point.x >= -kMargin && point.x <= width + kMargin && point.y >= -kMargin &&
         point.y <= height + kMargin;
}

float Remoteness(ScreenPoint point) { return std::max(std::abs(point.x), std::abs(point.y)); }

}  // namespace

int ToPixel(double position) { return RoundToInt32(std::floor(position + 0.5)); }

std::optional<PixelLine> ClipLine(ScreenPoint from, ScreenPoint to, int width, int height) {
  if (IsInside(from, width, height) && IsInside(to, width, height)) {
    return PixelLine{ToPixel(from.x), ToPixel(from.y), ToPixel(to.x), ToPixel(to.y)};
  }
  // Measured from the end nearer to the window: seen from one that is far away the
  // window's edges would be lost in rounding.
  const bool isReversed = Remoteness(from) > Remoteness(to);
  const ScreenPoint base = isReversed ? to : from;
  const ScreenPoint tip = isReversed ? from : to;
  const double dx = static_cast<double>(tip.x) - base.x;
  const double dy = static_cast<double>(tip.y) - base.y;
  if (!std::isfinite(dx) || !std::isfinite(dy)) return std::nullopt;
  Stretch stretch;
  if (!stretch.CutTo(base.x, dx, -kMargin, width + kMargin)) return std::nullopt;
  if (!stretch.CutTo(base.y, dy, -kMargin, height + kMargin)) return std::nullopt;
  const auto pixelX = [&](double part) {
    return ToPixel(std::clamp(base.x + part * dx, -kMargin, width + kMargin));
  };
  const auto pixelY = [&](double part) {
    return ToPixel(std::clamp(base.y + part * dy, -kMargin, height + kMargin));
  };
  const double first = isReversed ? stretch.end : stretch.start;
  const double last = isReversed ? stretch.start : stretch.end;
  return PixelLine{pixelX(first), pixelY(first), pixelX(last), pixelY(last)};
}

bool CircleTouches(ScreenPoint center, int radius, int width, int height) {
  if (radius < 0 || !std::isfinite(center.x) || !std::isfinite(center.y)) return false;
  const double x = center.x;
  const double y = center.y;
  const double nearestX = x - std::clamp<double>(x, 0, width);
  const double nearestY = y - std::clamp<double>(y, 0, height);
  const double farthestX = std::max(std::abs(x), std::abs(width - x));
  const double farthestY = std::max(std::abs(y), std::abs(height - y));
  return std::hypot(nearestX, nearestY) <= radius + 1.0 &&
         std::hypot(farthestX, farthestY) >= radius - 1.0;
}

}  // namespace vesmora
