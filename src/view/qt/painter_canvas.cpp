#include "view/qt/painter_canvas.h"

#include <QFontMetricsF>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr std::size_t kLinesAtOnce = 1024;
constexpr int kDotSpacing = 3;           // pixels: one on, two off
constexpr std::size_t kPensKept = 8192;  // far more than the corners of a full map
constexpr std::size_t kLabelsKept = 64;
constexpr int kLargestPlainRadius = 1024;  // pixels; beyond, only what is seen is painted
constexpr int kLargeCircleSteps = 1024;    // chords stay within a fifth of a pixel
constexpr std::uint32_t kNoPen = 0xFFFFFFFF;

Qt::PenStyle QtStyleOf(PenStyle style) {
  switch (style) {
    case PenStyle::kDash:
      return Qt::DashLine;
    case PenStyle::kDot:
      return Qt::DotLine;
    case PenStyle::kDashDot:
      return Qt::DashDotLine;
    case PenStyle::kSolid:
      break;
  }
  return Qt::SolidLine;
}

std::uint32_t KeyOf(Pen pen) {
  return static_cast<std::uint32_t>(pen.style) << 24 |
         static_cast<std::uint32_t>(pen.color.red) << 16 |
         static_cast<std::uint32_t>(pen.color.green) << 8 | pen.color.blue;
}

}  // namespace

PainterCanvas::PainterCanvas(const QFont& font, QColor background)
    : font_(font), background_(background) {
  lines_.reserve(kLinesAtOnce);
  labels_.reserve(kLabelsKept);
}

void PainterCanvas::Begin(QImage& image) {
  const QSizeF size = image.deviceIndependentSize();
  width_ = static_cast<int>(std::ceil(size.width()));
  height_ = static_cast<int>(std::ceil(size.height()));
  ratio_ = image.devicePixelRatio();
  dotSide_ = std::max(1, static_cast<int>(std::lround(ratio_)));
  pixels_ = {reinterpret_cast<QRgb*>(image.bits()), image.bytesPerLine() / 4, image.width(),
             image.height()};
  painter_.begin(&image);
  // Changes no pixel, but Qt writes lines straight into the picture only when a
  // clip rectangle is set; without one every line goes through lists of spans.
  painter_.setClipRect(0, 0, width_, height_);
  painter_.setFont(font_);
  painter_.setBrush(Qt::NoBrush);
  currentPen_ = kNoPen;
}

void PainterCanvas::End() {
  Flush();
  painter_.end();
}

void PainterCanvas::Clear() { painter_.fillRect(0, 0, width_, height_, background_); }

void PainterCanvas::UsePen(Pen pen) {
  const std::uint32_t key = KeyOf(pen);
  if (key == currentPen_) return;
  Flush();
  if (pens_.size() >= kPensKept) pens_.clear();
  auto [entry, isNew] = pens_.try_emplace(key);
  if (isNew) {
    entry->second = QPen(QColor(pen.color.red, pen.color.green, pen.color.blue), 1,
                         QtStyleOf(pen.style), Qt::FlatCap, Qt::MiterJoin);
  }
  painter_.setPen(entry->second);
  currentPen_ = key;
}

void PainterCanvas::Flush() {
  if (!lines_.empty()) painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
  lines_.clear();
}

void PainterCanvas::SetDot(std::int64_t left, std::int64_t top, QRgb color) const {
  for (std::int64_t y = std::max<std::int64_t>(top, 0);
       y < std::min<std::int64_t>(top + dotSide_, pixels_.height); ++y) {
    for (std::int64_t x = std::max<std::int64_t>(left, 0);
         x < std::min<std::int64_t>(left + dotSide_, pixels_.width); ++x) {
      pixels_.first[y * pixels_.stride + x] = color;
    }
  }
}

void PainterCanvas::DrawDots(const PixelLine& line, Rgb color) {
  constexpr double kOne = 65536;  // of a pixel's fractions
  const int dx = line.x2 - line.x1;
  const int dy = line.y2 - line.y1;
  const int length = std::max(std::abs(dx), std::abs(dy));
  const auto fraction = [&](double pixels) { return std::llround(pixels * ratio_ * kOne); };
  const std::int64_t stepX = length == 0 ? 0 : fraction(dx * double{kDotSpacing} / length);
  const std::int64_t stepY = length == 0 ? 0 : fraction(dy * double{kDotSpacing} / length);
  const QRgb pixel = qRgb(color.red, color.green, color.blue);
  std::int64_t x = fraction(line.x1 + 0.5 / ratio_);
  std::int64_t y = fraction(line.y1 + 0.5 / ratio_);
  const auto touchesPicture = [&](int step) {
    const std::int64_t left = (x + step * stepX) >> 16;
    const std::int64_t top = (y + step * stepY) >> 16;
    return left > -dotSide_ && left < pixels_.width && top > -dotSide_ && top < pixels_.height;
  };
  // Lines are cut a little outside the picture. Between two dots on it all are.
  int first = 0;
  int last = length / kDotSpacing;
  while (first <= last && !touchesPicture(first)) ++first;
  while (first <= last && !touchesPicture(last)) --last;
  x += first * stepX;
  y += first * stepY;
  for (int i = first; i <= last; ++i, x += stepX, y += stepY) {
    if (dotSide_ == 1) {
      pixels_.first[(y >> 16) * pixels_.stride + (x >> 16)] = pixel;
    } else {
      SetDot(x >> 16, y >> 16, pixel);
    }
  }
}

void PainterCanvas::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  const std::optional<PixelLine> line = ClipLine(from, to, width_, height_);
  if (!line) return;
  if (pen.style == PenStyle::kDot) {
    // Most lines of a map with many routes are dotted. A dotted QPen takes five times
    // as long as the single pixels that it comes down to, and allocates for each line.
    Flush();
    DrawDots(*line, pen.color);
    return;
  }
  UsePen(pen);
  if (lines_.size() == kLinesAtOnce) Flush();
  lines_.emplace_back(line->x1, line->y1, line->x2, line->y2);
}

void PainterCanvas::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  const ScreenPoint second{opposite.x, corner.y};
  const ScreenPoint fourth{corner.x, opposite.y};
  DrawLine(pen, corner, second);
  DrawLine(pen, second, opposite);
  DrawLine(pen, opposite, fourth);
  DrawLine(pen, fourth, corner);
}

void PainterCanvas::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  if (!CircleTouches(center, radius, width_, height_)) return;
  if (radius > kLargestPlainRadius) {
    DrawLargeCircle(pen, center, radius);
    return;
  }
  UsePen(pen);
  Flush();
  const int x = RoundToInt32(center.x);
  const int y = RoundToInt32(center.y);
  painter_.drawEllipse(x - radius, y - radius, 2 * radius, 2 * radius);
}

void PainterCanvas::DrawLargeCircle(Pen pen, ScreenPoint center, double radius) {
  const auto pointAt = [&](int step) {
    const double angle = 2 * std::numbers::pi * step / kLargeCircleSteps;
    return ScreenPoint{static_cast<float>(center.x + radius * std::cos(angle)),
                       static_cast<float>(center.y + radius * std::sin(angle))};
  };
  ScreenPoint from = pointAt(0);
  for (int step = 1; step <= kLargeCircleSteps; ++step) {
    const ScreenPoint to = pointAt(step);
    DrawLine(pen, from, to);
    from = to;
  }
}

const PainterCanvas::Label& PainterCanvas::LabelFor(std::string_view text) {
  for (const Label& label : labels_) {
    if (label.text == text) return label;
  }
  if (labels_.size() == kLabelsKept) labels_.clear();
  QStaticText layout(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
  layout.setTextFormat(Qt::PlainText);
  layout.setPerformanceHint(QStaticText::AggressiveCaching);
  layout.prepare(QTransform(), font_);
  const QSizeF size = layout.size();
  return labels_.emplace_back(
      Label{std::string(text),
            layout,
            {static_cast<float>(size.width()), static_cast<float>(size.height())}});
}

void PainterCanvas::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  const Label& label = LabelFor(text);
  const bool isSeen = topLeft.x > -label.size.width && topLeft.y > -label.size.height &&
                      topLeft.x < static_cast<float>(width_) &&
                      topLeft.y < static_cast<float>(height_);
  if (!isSeen) return;
  UsePen({color, PenStyle::kSolid});
  Flush();
  painter_.drawStaticText(RoundToInt32(topLeft.x), RoundToInt32(topLeft.y), label.layout);
}

TextSize PainterCanvas::MeasureText(std::string_view text) { return LabelFor(text).size; }

}  // namespace vesmora
