// The floor for drawing: a recorded list of primitives and the plainest way to
// put them into a picture. Not used by the program.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "view/canvas.h"

namespace vesmora::bench {

enum class Shape : std::uint8_t { kClear, kLine, kRectangle, kCircle, kText };

struct Primitive {
  Shape shape = Shape::kClear;
  Pen pen;
  ScreenPoint from;  // centre of a circle, top left corner of a text
  ScreenPoint to;    // far corner of a text
  std::int16_t radius = 0;
};

/// Keeps what is drawn on it. Texts have the size that `sizes` gives them.
class PrimitiveRecorder final : public Canvas {
 public:
  explicit PrimitiveRecorder(Canvas& sizes) : sizes_(sizes) {}

  const std::vector<Primitive>& Primitives() const { return primitives_; }

  void Clear() override;
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override;
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override;
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override;
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;

 private:
  Canvas& sizes_;
  std::vector<Primitive> primitives_;
};

/// 32-bit pixels without gaps between the rows.
struct Picture {
  std::span<std::uint32_t> pixels;
  int width = 0;
  int height = 0;
};

/// Bresenham lines cut at the picture's edges, midpoint circles tested pixel by pixel. A text
/// is the outline of its box: about as many pixels as a figure has.
void DrawPlainly(std::span<const Primitive> primitives, std::uint32_t background,
                 const Picture& picture);

}  // namespace vesmora::bench
