// A Canvas that writes the drawing as SVG.
#pragma once

#include <string>

#include "view/canvas.h"
#include "view/clip.h"

namespace vesmora {

class SvgCanvas final : public Canvas {
 public:
  /// Pixels. `ground` is what Clear leaves: SVG elements, such as a picture; empty for the usual
  /// ground of a map.
  SvgCanvas(int width, int height, std::string ground = {});

  void Clear() override;
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override;
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override;
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override;
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;

  /// The elements drawn since Clear; nothing can be drawn after.
  std::string TakeElements();

 private:
  void UsePen(Pen pen);
  void EndPath();

  int width_;
  int height_;
  std::string ground_;
  std::string elements_;
  std::string path_;  // of the lines that one pen has drawn in a row
  Pen pen_;
};

/// A whole SVG file of elements.
std::string SvgFile(int width, int height, const std::string& elements);

/// Text as SVG may hold it: marks of its own are told in words, control characters become '?'.
std::string SvgText(std::string_view text);

/// "#ff8000"
std::string SvgColor(Rgb color);

}  // namespace vesmora
