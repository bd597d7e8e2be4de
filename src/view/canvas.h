// What the map is drawn on. The drawing code knows these primitives only:
// the window paints them, tests record them.
#pragma once

#include <cstdint>
#include <string_view>

namespace vesmora {

struct Rgb {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Rgb&) const = default;
};

enum class PenStyle : std::uint8_t { kSolid, kDash, kDot, kDashDot };

/// Pens are always 1 pixel wide.
struct Pen {
  Rgb color;
  PenStyle style = PenStyle::kSolid;

  bool operator==(const Pen&) const = default;
};

/// Window pixels; any value a float can hold, not-a-number included.
struct ScreenPoint {
  float x = 0;
  float y = 0;

  bool operator==(const ScreenPoint&) const = default;
};

struct TextSize {
  float width = 0;  // pixels
  float height = 0;
};

/// Pixels; outlines only, nothing is ever filled. Calls with coordinates far
/// outside the window must be cheap and safe.
class Canvas {
 public:
  virtual ~Canvas() = default;

  /// Fills the whole area with the window's own background colour.
  virtual void Clear() = 0;
  virtual void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) = 0;
  virtual void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) = 0;
  virtual void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) = 0;
  /// `topLeft` is the corner of the box that MeasureText gives.
  virtual void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) = 0;
  virtual TextSize MeasureText(std::string_view text) = 0;
};

}  // namespace vesmora
