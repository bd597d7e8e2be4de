// A Canvas that keeps what was drawn on it as a list.
#pragma once

#include <string>
#include <vector>

#include "view/canvas.h"

namespace vesmora {

struct Primitive {
  enum class Kind { kClear, kLine, kRectangle, kCircle, kText };

  Kind kind = Kind::kClear;
  Pen pen;  // a text has a colour only
  ScreenPoint from;
  ScreenPoint to;  // of lines and rectangles
  int radius = 0;  // of circles
  std::string text;
};

class RecordingCanvas final : public Canvas {
 public:
  // Every character is this large.
  static constexpr float kCharacterWidth = 8;
  static constexpr float kTextHeight = 13;

  std::vector<Primitive> primitives;

  /// One line of text a primitive, without the clear: "line 0000ff dot 1,2 3,4",
  /// "box ...", "circle ff0000 solid 1,2 r5", "text 0000ff 1,2 1". Colours are RGB,
  /// coordinates are given to a thousandth.
  std::vector<std::string> Lines() const;

  void Clear() override;
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override;
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override;
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override;
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;
};

}  // namespace vesmora
