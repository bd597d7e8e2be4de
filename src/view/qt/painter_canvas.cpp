#include "view/qt/painter_canvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace vesmora {
namespace {

constexpr std::size_t kLabelsKept = 64;
constexpr int kLargestPlainRadius = 1024;  // image pixels; beyond, only what is seen is painted
constexpr int kLargeCircleSteps = 1024;    // chords stay within a fifth of a pixel

/// Handles are dotted boxes of but a few pixels, in bright colours that are hard to see on this
/// ground: dark gaps let them stand out. The grey box of a lone object keeps wide gaps instead,
/// through which the object's mark is seen.
constexpr float kSmallBox = 25;  // window pixels: a handle at the largest zoom fits
constexpr Rgb kSmallBoxGaps = {0, 0, 0};

QRgb PixelOf(Rgb color) { return qRgb(color.red, color.green, color.blue); }

}  // namespace

PainterCanvas::PainterCanvas(const QFont& font, QColor background)
    : font_(font), background_(background) {}

void PainterCanvas::SetFont(const QFont& font) {
  font_ = font;
  labels_.clear();
}

void PainterCanvas::Begin(QImage& image) {
  width_ = image.width();
  height_ = image.height();
  ratio_ = static_cast<float>(image.devicePixelRatio());
  const int penWidth = std::max(1, ToPixel(ratio_));
  auto* first = reinterpret_cast<QRgb*>(image.bits());
  pixels_ = PixelPainter({first, image.bytesPerLine() / 4, width_, height_}, penWidth);
  painter_.begin(&image);
  painter_.setFont(font_);
}

void PainterCanvas::End() { painter_.end(); }

void PainterCanvas::Clear() { pixels_.Fill(background_.rgb()); }

void PainterCanvas::DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) {
  DrawSide({InImage(from), InImage(to)}, DashesOf(pen.style), pen.color);
}

void PainterCanvas::DrawSide(const Side& side, const Dashes& dashes, Rgb color) const {
  const std::optional<PixelLine> line = ClipLine(side.from, side.to, width_, height_);
  if (line) pixels_.DrawLine(*line, dashes, PixelOf(color));
}

void PainterCanvas::DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) {
  const ScreenPoint first = InImage(corner);
  const ScreenPoint third = InImage(opposite);
  const ScreenPoint second{third.x, first.y};
  const ScreenPoint fourth{first.x, third.y};
  // All the way round: each corner is where the dashes of a side start.
  const auto drawSides = [&](const Dashes& dashes, Rgb color) {
    DrawSide({first, second}, dashes, color);
    DrawSide({second, third}, dashes, color);
    DrawSide({third, fourth}, dashes, color);
    DrawSide({fourth, first}, dashes, color);
  };
  if (pen.style != PenStyle::kDot) {
    drawSides(DashesOf(pen.style), pen.color);
    return;
  }
  const float side = kSmallBox * ratio_;
  const bool isSmall = std::abs(third.x - first.x) < side && std::abs(third.y - first.y) < side;
  const bool isGrey = pen.color.red == pen.color.green && pen.color.green == pen.color.blue;
  if (isSmall && !isGrey) drawSides(DashesOf(PenStyle::kSolid), kSmallBoxGaps);
  drawSides(isSmall && isGrey ? DashesOf(pen.style) : kBoxDots, pen.color);
}

void PainterCanvas::DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) {
  const ScreenPoint middle = InImage(center);
  const int reach = ToPixel(radius * ratio_);
  if (!CircleTouches(middle, reach, width_, height_)) return;
  if (reach > kLargestPlainRadius) {
    DrawLargeCircle(pen, middle, reach);
  } else {
    pixels_.DrawCircle(ToPixel(middle.x), ToPixel(middle.y), reach, DashesOf(pen.style),
                       PixelOf(pen.color));
  }
}

void PainterCanvas::DrawLargeCircle(Pen pen, ScreenPoint center, double radius) const {
  const auto pointAt = [&](int step) {
    const double angle = 2 * std::numbers::pi * step / kLargeCircleSteps;
    return ScreenPoint{static_cast<float>(center.x + radius * std::cos(angle)),
                       static_cast<float>(center.y + radius * std::sin(angle))};
  };
  ScreenPoint from = pointAt(0);
  for (int step = 1; step <= kLargeCircleSteps; ++step) {
    const ScreenPoint to = pointAt(step);
    DrawSide({from, to}, DashesOf(pen.style), pen.color);
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

const QPen& PainterCanvas::PenFor(Rgb color) {
  const QRgb pixel = PixelOf(color);
  return pens_.try_emplace(pixel, QColor(pixel)).first->second;
}

void PainterCanvas::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  const Label& label = LabelFor(text);
  const ScreenPoint place = InImage(topLeft);
  const bool isSeen = place.x > -label.size.width * ratio_ &&
                      place.y > -label.size.height * ratio_ &&
                      place.x < static_cast<float>(width_) && place.y < static_cast<float>(height_);
  if (!isSeen) return;
  painter_.setPen(PenFor(color));
  // The painter counts in window pixels.
  painter_.drawStaticText(QPointF(ToPixel(place.x), ToPixel(place.y)) / ratio_, label.layout);
}

TextSize PainterCanvas::MeasureText(std::string_view text) { return LabelFor(text).size; }

}  // namespace vesmora
