// A Canvas that keeps what was drawn on it, one line of text a primitive: "clear",
// "line 0000ff dot 1,2 3,4", "box 0000ff 1,2 3,4", "circle ff0000 1,2 r5", "text 0000ff 1,2 1".
// Colours are RGB, a solid pen goes unsaid, coordinates are given to a thousandth.
#pragma once

#include <array>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "view/canvas.h"

namespace vesmora {

class RecordingCanvas final : public Canvas {
 public:
  std::vector<std::string> lines;

  void Clear() override { lines.emplace_back("clear"); }
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override {
    Add("line ", pen, from, Place(to));
  }
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override {
    Add("box ", pen, corner, Place(opposite));
  }
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override {
    Add("circle ", pen, center, "r" + std::to_string(radius));
  }
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override {
    Add("text ", {color, PenStyle::kSolid}, topLeft, std::string(text));
  }
  /// Every character is 8 x 13 pixels large.
  TextSize MeasureText(std::string_view text) override {
    return {8 * static_cast<float>(text.size()), 13};
  }

 private:
  void Add(const char* kind, Pen pen, ScreenPoint from, const std::string& rest) {
    constexpr std::array kStyles = {" ", " dash ", " dot ", " dashdot "};
    std::array<char, 8> color;
    std::snprintf(color.data(), color.size(), "%02x%02x%02x", pen.color.red, pen.color.green,
                  pen.color.blue);
    lines.push_back(kind + std::string(color.data()) +
                    kStyles[static_cast<std::size_t>(pen.style)] + Place(from) + " " + rest);
  }
  static std::string Place(ScreenPoint point) {
    // Adding zero turns the -0 that rounding may leave into 0.
    const auto round = [](float value) { return std::nearbyint(value * 1000.0) / 1000.0 + 0.0; };
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.12g,%.12g", round(point.x), round(point.y));
    return text.data();
  }
};

}  // namespace vesmora
