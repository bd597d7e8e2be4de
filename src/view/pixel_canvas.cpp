#include "view/pixel_canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace vesmora {
namespace {

constexpr int kLargestPlainRadius = 1024;  // picture pixels; beyond, only what is seen is painted
constexpr int kLargeCircleSteps = 1024;    // chords stay within a fifth of a pixel

/// Handles are dotted boxes of but a few pixels, in bright colours that are hard to see on this
/// ground: dark gaps let them stand out. The grey box of a lone object keeps wide gaps instead,
/// through which the object's mark is seen.
constexpr float kSmallBox = 25;  // window pixels: a handle at the largest zoom fits
constexpr Rgb kSmallBoxGaps = {0, 0, 0};

}  // namespace

void PixelCanvas::SetPicture(const Picture& picture, float ratio) {
  width_ = picture.width;
  height_ = picture.height;
  ratio_ = ratio;
  pixels_ = PixelPainter(picture, std::max(1, ToPixel(ratio)));
}

void PixelCanvas::Clear() { pixels_.Fill(PixelOf(ground_)); }

void PixelCanvas::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  DrawSide({InPicture(from), InPicture(to)}, DashesOf(pen.style), pen.color);
}

void PixelCanvas::DrawSide(const Side& side, const Dashes& dashes, Rgb color) const {
  const std::optional<PixelLine> line = ClipLine(side.from, side.to, width_, height_);
  if (line) pixels_.DrawLine(*line, dashes, PixelOf(color));
}

void PixelCanvas::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  const ScreenPoint first = InPicture(corner);
  const ScreenPoint third = InPicture(opposite);
  const ScreenPoint second{third.x, first.y};
  const ScreenPoint fourth{first.x, third.y};
  // All the way round: each corner is where the dashes of a side start.
  const auto drawSides = [&](const Dashes& dashes, Rgb color) {
    DrawSide({first, second}, dashes, color);
    DrawSide({second, third}, dashes, color);
    DrawSide({third, fourth}, dashes, color);
    DrawSide({fourth, first}, dashes, color);
  };
  if (pen.style != PenStyle::kDot) {
    drawSides(DashesOf(pen.style), pen.color);
    return;
  }
  const float side = kSmallBox * ratio_;
  const bool isSmall = std::abs(third.x - first.x) < side && std::abs(third.y - first.y) < side;
  const bool isGrey = pen.color.red == pen.color.green && pen.color.green == pen.color.blue;
  if (isSmall && !isGrey) drawSides(DashesOf(PenStyle::kSolid), kSmallBoxGaps);
  drawSides(isSmall && isGrey ? DashesOf(pen.style) : kBoxDots, pen.color);
}

void PixelCanvas::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  const ScreenPoint middle = InPicture(center);
  const int reach = ToPixel(radius * ratio_);
  if (!CircleTouches(middle, reach, width_, height_)) return;
  if (reach > kLargestPlainRadius) {
    DrawLargeCircle(pen, middle, reach);
  } else {
    pixels_.DrawCircle(ToPixel(middle.x), ToPixel(middle.y), reach, DashesOf(pen.style),
                       PixelOf(pen.color));
  }
}

void PixelCanvas::DrawLargeCircle(Pen pen, ScreenPoint center, double radius) const {
  const auto pointAt = [&](int step) {
    const double angle = 2 * std::numbers::pi * step / kLargeCircleSteps;
    return ScreenPoint{static_cast<float>(center.x + radius * std::cos(angle)),
                       static_cast<float>(center.y + radius * std::sin(angle))};
  };
  ScreenPoint from = pointAt(0);
  for (int step = 1; step <= kLargeCircleSteps; ++step) {
    const ScreenPoint to = pointAt(step);
    DrawSide({from, to}, DashesOf(pen.style), pen.color);
    from = to;
  }
}

}  // namespace vesmora
