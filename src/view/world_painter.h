// Draws shapes given in world units: converts, drops what lies outside the
// window, and hands the rest to a Canvas in window pixels.
#pragma once

#include <cstdint>
#include <string_view>

#include "view/canvas.h"
#include "view/view_transform.h"

namespace vesmora {

class WorldPainter {
 public:
  WorldPainter(Canvas& canvas, const ViewTransform& view) : canvas_(canvas), view_(view) {}

  void SetColor(Rgb color) { pen_.color = color; }
  void SetStyle(PenStyle style) { pen_.style = style; }

  /// A line or, with `box`, the rectangle with these corners, in the current pen.
  void DrawWorldLine(float x1, float y1, float x2, float y2, bool box);

  /// The square of 2 x `half` world units about a point.
  void DrawWorldSquare(float x, float y, float half);

  /// `radius` in pixels whatever the zoom; current pen style.
  void DrawWorldCircle(float x, float y, std::int16_t radius, Rgb color);

  /// A route between waypoints: a line with an arrow head at its middle.
  void PiirraReitti(float x1, float y1, float x2, float y2);

  /// Text centred on a point, one pixel to the left.
  void DrawLabel(float x, float y, std::string_view text);

  // In window pixels, current pen.
  void DrawScreenLine(ScreenPoint from, ScreenPoint to) { canvas_.DrawLine(pen_, from, to); }
  void DrawScreenRectangle(ScreenPoint corner, ScreenPoint opposite) {
    canvas_.DrawRectangle(pen_, corner, opposite);
  }

 private:
  ScreenPoint ToScreen(float x, float y) const {
    return {view_.LaskeRuutuX(x), view_.LaskeRuutuY(y)};
  }
  bool IsNearWindow(ScreenPoint point, float margin) const;

  Canvas& canvas_;
  const ViewTransform& view_;
  Pen pen_;
};

}  // namespace vesmora
