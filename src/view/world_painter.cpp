#include "view/world_painter.h"

namespace vesmora {
namespace {

constexpr float kBarbLength = 10;   // world units
constexpr float kBarbAngle = 0.7f;  // radians on either side of the route

/// True when neither end reaches into 0 < position < limit from its side.
bool BothOutside(float a, float b, int limit) {
  const auto end = static_cast<float>(limit);
  return (a <= 0 && b <= 0) || !(a < end || b < end);
}

}  // namespace

void WorldPainter::DrawWorldLine(float x1, float y1, float x2, float y2, bool box) {
  const ScreenPoint from = ToScreen(x1, y1);
  const ScreenPoint to = ToScreen(x2, y2);
  if (BothOutside(from.x, to.x, view_.area.width)) return;
  if (BothOutside(from.y, to.y, view_.area.height)) return;
  if (box) {
    canvas_.DrawRectangle(pen_, from, to);
  } else {
    canvas_.DrawLine(pen_, from, to);
  }
}

void WorldPainter::DrawWorldSquare(float x, float y, float half) {
  DrawWorldLine(x - half, y - half, x + half, y + half, true);
}

bool WorldPainter::IsNearWindow(ScreenPoint point, float margin) const {
  return point.x > -margin && point.y > -margin &&
         point.x < static_cast<float>(view_.area.width) + margin &&
         point.y < static_cast<float>(view_.area.height) + margin;
}

void WorldPainter::DrawWorldCircle(float x, float y, std::int16_t radius, Rgb color) {
  const ScreenPoint center = ToScreen(x, y);
  if (!IsNearWindow(center, radius)) return;
  canvas_.DrawCircle({color, pen_.style}, center, radius);
}

void WorldPainter::PiirraReitti(float x1, float y1, float x2, float y2) {
  const float dx = x2 - x1;
  const float dy = y2 - y1;
  const float middleX = x1 + dx / 2;
  const float middleY = y1 + dy / 2;
  // Most routes of a large map have their middle off the window: their barbs
  // could not be seen, and the angles are the dearest part of the drawing.
  if (IsNearWindow(ToScreen(middleX, middleY), 2 * kBarbLength * view_.zoom)) {
    const float angle = OffsetToPolar(dx, dy).angle;
    for (const float barb : {angle + kBarbAngle, angle - kBarbAngle}) {
      const WorldPoint offset = PolarToOffset(barb, kBarbLength, false);
      DrawWorldLine(middleX, middleY, middleX - offset.x, middleY - offset.y, false);
    }
  }
  DrawWorldLine(x1, y1, x2, y2, false);
}

void WorldPainter::DrawLabel(float x, float y, std::string_view text) {
  const TextSize size = canvas_.MeasureText(text);
  const ScreenPoint center = ToScreen(x, y);
  canvas_.DrawText(pen_.color, {center.x - size.width / 2 - 1, center.y - size.height / 2}, text);
}

}  // namespace vesmora
