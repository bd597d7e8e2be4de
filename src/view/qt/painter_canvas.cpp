#include "view/qt/painter_canvas.h"

namespace vesmora {
namespace {

constexpr std::size_t kLabelsKept = 64;

}  // namespace

PainterCanvas::PainterCanvas(const QFont& font, QColor background)
    : PixelCanvas({static_cast<std::uint8_t>(background.red()),
                   static_cast<std::uint8_t>(background.green()),
                   static_cast<std::uint8_t>(background.blue())}),
      font_(font) {}

void PainterCanvas::SetFont(const QFont& font) {
  font_ = font;
  labels_.clear();
}

void PainterCanvas::Begin(QImage& image) {
  auto* first = reinterpret_cast<QRgb*>(image.bits());
  SetPicture({first, image.bytesPerLine() / 4, image.width(), image.height()},
             static_cast<float>(image.devicePixelRatio()));
  painter_.begin(&image);
  painter_.setFont(font_);
}

void PainterCanvas::End() { painter_.end(); }

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
  const ScreenPoint place = InPicture(topLeft);
  const bool isSeen =
      place.x > -label.size.width * Ratio() && place.y > -label.size.height * Ratio() &&
      place.x < static_cast<float>(Width()) && place.y < static_cast<float>(Height());
  if (!isSeen) return;
  painter_.setPen(PenFor(color));
  // The painter counts in window pixels.
  painter_.drawStaticText(QPointF(ToPixel(place.x), ToPixel(place.y)) / Ratio(), label.layout);
}

TextSize PainterCanvas::MeasureText(std::string_view text) { return LabelFor(text).size; }

}  // namespace vesmora
