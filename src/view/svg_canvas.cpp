#include "view/svg_canvas.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "platform/utf8.h"
#include "view/pixel_canvas.h"

namespace vesmora {
namespace {

constexpr float kLetterWidth = 7;  // pixels
constexpr float kLineHeight = 13;

std::string DashesText(PenStyle style) {
  if (style == PenStyle::kSolid) return {};
  std::string text;
  for (const int length : DashesOf(style)) {
    text += (text.empty() ? " stroke-dasharray=\"" : " ") + std::to_string(length);
  }
  return text + "\"";
}

std::string StrokeText(Pen pen) {
  return " stroke=\"" + SvgColor(pen.color) + "\"" + DashesText(pen.style);
}

void AppendPoint(std::string& text, char command, int x, int y) {
  text.append(1, command).append(std::to_string(x)).append(" ").append(std::to_string(y));
}

}  // namespace

SvgCanvas::SvgCanvas(int width, int height, std::string ground)
    : width_(width), height_(height), ground_(std::move(ground)) {
  if (!ground_.empty()) return;
  ground_ = "<rect width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
            "\" fill=\"" + SvgColor(kMapGround) + "\"/>\n";
}

void SvgCanvas::Clear() {
  path_.clear();
  // Lines go through the middle of pixels.
  elements_ = ground_ + "<g fill=\"none\" transform=\"translate(.5 .5)\">\n";
}

void SvgCanvas::UsePen(Pen pen) {
  if (pen == pen_) return;
  EndPath();
  pen_ = pen;
}

void SvgCanvas::EndPath() {
  if (path_.empty()) return;
  elements_ += "<path" + StrokeText(pen_) + " d=\"" + path_ + "\"/>\n";
  path_.clear();
}

void SvgCanvas::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  const auto line = ClipLine(from, to, width_, height_);
  if (!line) return;
  UsePen(pen);
  AppendPoint(path_, 'M', line->x1, line->y1);
  AppendPoint(path_, 'L', line->x2, line->y2);
}

void SvgCanvas::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  const ScreenPoint second{opposite.x, corner.y};
  const ScreenPoint fourth{corner.x, opposite.y};
  DrawLine(pen, corner, second);
  DrawLine(pen, second, opposite);
  DrawLine(pen, opposite, fourth);
  DrawLine(pen, fourth, corner);
}

void SvgCanvas::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  if (!CircleTouches(center, radius, width_, height_)) return;
  EndPath();
  elements_ += "<circle" + StrokeText(pen) + " cx=\"" + std::to_string(ToPixel(center.x)) +
               "\" cy=\"" + std::to_string(ToPixel(center.y)) + "\" r=\"" + std::to_string(radius) +
               "\"/>\n";
}

void SvgCanvas::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  const TextSize size = MeasureText(text);
  const bool isSeen = topLeft.x > -size.width && topLeft.y > -size.height &&
                      topLeft.x < static_cast<float>(width_) &&
                      topLeft.y < static_cast<float>(height_);
  if (!isSeen) return;
  EndPath();
  // Placed by its middle, so that the reader's font does not matter.
  elements_ += "<text fill=\"" + SvgColor(color) + "\" x=\"" +
               std::to_string(ToPixel(topLeft.x + size.width / 2)) + "\" y=\"" +
               std::to_string(ToPixel(topLeft.y + size.height / 2)) +
               "\" font-family=\"sans-serif\" font-size=\"11\" text-anchor=\"middle\" "
               "dominant-baseline=\"central\">" +
               SvgText(text) + "</text>\n";
}

TextSize SvgCanvas::MeasureText(std::string_view text) {
  return {kLetterWidth * static_cast<float>(text.size()), kLineHeight};
}

std::string SvgCanvas::TakeElements() {
  EndPath();
  return std::move(elements_) + "</g>\n";
}

std::string SvgFile(int width, int height, const std::string& elements) {
  const std::string size =
      " width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) + "\"";
  return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + size + " viewBox=\"0 0 " +
         std::to_string(width) + " " + std::to_string(height) + "\">\n" + elements + "</svg>\n";
}

std::string SvgText(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string_view before = text;
    const std::uint32_t character = TakeUtf8Character(text);
    if (character == '&') {
      result += "&amp;";
    } else if (character == '<') {
      result += "&lt;";
    } else if (character < ' ' || character == kNoCharacter) {
      result += '?';
    } else {
      result += before.substr(0, before.size() - text.size());
    }
  }
  return result;
}

std::string SvgColor(Rgb color) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", color.red, color.green, color.blue);
  return text.data();
}

}  // namespace vesmora
