#include "support/recording_canvas.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace vesmora {
namespace {

std::string Number(float value) {
  // Adding zero turns the -0 that rounding may leave into 0.
  const double rounded = std::nearbyint(value * 1000.0) / 1000.0 + 0.0;
  std::array<char, 32> text;
  std::snprintf(text.data(), text.size(), "%.12g", rounded);
  return text.data();
}

std::string Point(ScreenPoint point) { return Number(point.x) + "," + Number(point.y); }

std::string Color(Rgb color) {
  std::array<char, 8> text;
  std::snprintf(text.data(), text.size(), "%02x%02x%02x", color.red, color.green, color.blue);
  return text.data();
}

std::string Describe(const Primitive& primitive) {
  constexpr std::array kStyles = {" solid ", " dash ", " dot ", " dashdot "};
  const std::string color = Color(primitive.pen.color);
  const std::string pen = color + kStyles[static_cast<std::size_t>(primitive.pen.style)];
  const std::string from = Point(primitive.from);
  switch (primitive.kind) {
    case Primitive::Kind::kClear:
      return "clear";
    case Primitive::Kind::kLine:
      return "line " + pen + from + " " + Point(primitive.to);
    case Primitive::Kind::kRectangle:
      return "box " + pen + from + " " + Point(primitive.to);
    case Primitive::Kind::kCircle:
      return "circle " + pen + from + " r" + std::to_string(primitive.radius);
    case Primitive::Kind::kText:
      return "text " + color + " " + from + " " + primitive.text;
  }
  return {};
}

}  // namespace

std::vector<std::string> RecordingCanvas::Lines() const {
  std::vector<std::string> lines;
  for (const Primitive& primitive : primitives) {
    if (primitive.kind != Primitive::Kind::kClear) lines.push_back(Describe(primitive));
  }
  return lines;
}

void RecordingCanvas::Clear() { primitives.emplace_back(); }

void RecordingCanvas::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  primitives.push_back({Primitive::Kind::kLine, pen, from, to, 0, {}});
}

void RecordingCanvas::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  primitives.push_back({Primitive::Kind::kRectangle, pen, corner, opposite, 0, {}});
}

void RecordingCanvas::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  primitives.push_back({Primitive::Kind::kCircle, pen, center, {}, radius, {}});
}

void RecordingCanvas::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  primitives.push_back(
      {Primitive::Kind::kText, {color, PenStyle::kSolid}, topLeft, {}, 0, std::string(text)});
}

TextSize RecordingCanvas::MeasureText(std::string_view text) {
  return {kCharacterWidth * static_cast<float>(text.size()), kTextHeight};
}

}  // namespace vesmora
