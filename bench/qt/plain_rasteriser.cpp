#include "plain_rasteriser.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "document/numbers.h"

namespace vesmora::bench {
namespace {

// One bit a pixel, lowest first, and how many pixels there are before it repeats.
struct DashPattern {
  std::uint32_t bits;
  int length;
};

constexpr std::array<DashPattern, 4> kDashPatterns = {{
    {0b1, 1},
    {0b001111, 6},
    {0b001, 3},
    {0b001001111, 9},
}};

std::uint32_t PixelOf(Rgb color) {
  return 0xFF000000U | static_cast<std::uint32_t>(color.red) << 16U |
         static_cast<std::uint32_t>(color.green) << 8U | color.blue;
}

/// Cuts a line to 0..limit on one axis; false when nothing is left or it is no line.
bool CutAxis(double& a1, double& b1, double& a2, double& b2, double limit) {
  if (!(std::abs(a1) < 1e9 && std::abs(a2) < 1e9)) return false;
  if ((a1 < 0 && a2 < 0) || (a1 > limit && a2 > limit)) return false;
  const double slope = a1 == a2 ? 0 : (b2 - b1) / (a2 - a1);
  const auto cut = [&](double& a, double& b) {
    const double inside = std::clamp(a, 0.0, limit);
    b += (inside - a) * slope;
    a = inside;
  };
  cut(a1, b1);
  cut(a2, b2);
  return true;
}

class Rasteriser {
 public:
  explicit Rasteriser(const Picture& picture) : picture_(picture) {}

  void Draw(const Primitive& item, std::uint32_t background);

 private:
  void Fill(std::uint32_t color);
  void DrawLine(ScreenPoint from, ScreenPoint to, std::uint32_t color, PenStyle style);
  void DrawRectangle(ScreenPoint from, ScreenPoint to, std::uint32_t color, PenStyle style);
  void DrawCircle(ScreenPoint center, int radius, std::uint32_t color);

  const Picture& picture_;
};

void Rasteriser::Fill(std::uint32_t color) {
  const auto row = picture_.pixels.first(static_cast<std::size_t>(picture_.width));
  std::ranges::fill(row, color);
  for (std::size_t at = row.size(); at < picture_.pixels.size(); at += row.size()) {
    std::memcpy(&picture_.pixels[at], row.data(), row.size_bytes());
  }
}

void Rasteriser::DrawLine(ScreenPoint from, ScreenPoint to, std::uint32_t color, PenStyle style) {
  double fromX = from.x;
  double fromY = from.y;
  double toX = to.x;
  double toY = to.y;
  if (!CutAxis(fromX, fromY, toX, toY, picture_.width - 1)) return;
  if (!CutAxis(fromY, fromX, toY, toX, picture_.height - 1)) return;
  const int x = static_cast<int>(fromX + 0.5);
  const int y = static_cast<int>(fromY + 0.5);
  const int dx = static_cast<int>(toX + 0.5) - x;
  const int dy = static_cast<int>(toY + 0.5) - y;

  std::ptrdiff_t major = dx < 0 ? -1 : 1;
  std::ptrdiff_t minor = dy < 0 ? -picture_.width : picture_.width;
  int steps = std::abs(dx);
  int rise = std::abs(dy);
  if (rise > steps) {
    std::swap(steps, rise);
    std::swap(major, minor);
  }
  std::uint32_t* pixel = &picture_.pixels[static_cast<std::size_t>(y * picture_.width + x)];
  int error = steps / 2;
  const auto advance = [&] {
    pixel += major;
    error -= rise;
    if (error < 0) {
      pixel += minor;
      error += steps;
    }
  };
  *pixel = color;
  if (style == PenStyle::kSolid) {
    for (int i = 0; i < steps; ++i) {
      advance();
      *pixel = color;
    }
    return;
  }
  const DashPattern pattern = kDashPatterns[static_cast<std::size_t>(style)];
  int phase = 0;
  for (int i = 0; i < steps; ++i) {
    advance();
    if (++phase == pattern.length) phase = 0;
    if ((pattern.bits >> static_cast<unsigned>(phase) & 1U) != 0) *pixel = color;
  }
}

void Rasteriser::DrawRectangle(ScreenPoint from, ScreenPoint to, std::uint32_t color,
                               PenStyle style) {
  DrawLine(from, {to.x, from.y}, color, style);
  DrawLine({to.x, from.y}, to, color, style);
  DrawLine(to, {from.x, to.y}, color, style);
  DrawLine({from.x, to.y}, from, color, style);
}

void Rasteriser::DrawCircle(ScreenPoint center, int radius, std::uint32_t color) {
  if (!(std::abs(center.x) < 1e5F && std::abs(center.y) < 1e5F)) return;
  const int centerX = RoundToInt32(center.x);
  const int centerY = RoundToInt32(center.y);
  const auto put = [&](int x, int y) {
    if (x < 0 || y < 0 || x >= picture_.width || y >= picture_.height) return;
    picture_.pixels[static_cast<std::size_t>(y * picture_.width + x)] = color;
  };
  int x = radius;
  int error = 1 - radius;
  for (int y = 0; y <= x; ++y) {
    put(centerX + x, centerY + y);
    put(centerX - x, centerY + y);
    put(centerX + x, centerY - y);
    put(centerX - x, centerY - y);
    put(centerX + y, centerY + x);
    put(centerX - y, centerY + x);
    put(centerX + y, centerY - x);
    put(centerX - y, centerY - x);
    error += error < 0 ? 2 * y + 3 : 2 * (y - --x) + 3;
  }
}

void Rasteriser::Draw(const Primitive& item, std::uint32_t background) {
  const std::uint32_t color = PixelOf(item.pen.color);
  switch (item.shape) {
    case Shape::kClear:
      Fill(background);
      break;
    case Shape::kLine:
      DrawLine(item.from, item.to, color, item.pen.style);
      break;
    case Shape::kCircle:
      DrawCircle(item.from, item.radius, color);
      break;
    case Shape::kRectangle:
    case Shape::kText:
      DrawRectangle(item.from, item.to, color, item.pen.style);
      break;
  }
}

}  // namespace

void PrimitiveRecorder::Clear() { primitives_.push_back({}); }

void PrimitiveRecorder::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  primitives_.push_back({Shape::kLine, pen, from, to, 0});
}

void PrimitiveRecorder::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  primitives_.push_back({Shape::kRectangle, pen, corner, opposite, 0});
}

void PrimitiveRecorder::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  primitives_.push_back({Shape::kCircle, pen, center, center, radius});
}

void PrimitiveRecorder::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  const TextSize size = MeasureText(text);
  const ScreenPoint opposite{topLeft.x + size.width, topLeft.y + size.height};
  primitives_.push_back({Shape::kText, {color, PenStyle::kSolid}, topLeft, opposite, 0});
}

TextSize PrimitiveRecorder::MeasureText(std::string_view text) { return sizes_.MeasureText(text); }

void DrawPlainly(std::span<const Primitive> primitives, std::uint32_t background,
                 const Picture& picture) {
  Rasteriser rasteriser(picture);
  for (const Primitive& item : primitives) rasteriser.Draw(item, background);
}

}  // namespace vesmora::bench
