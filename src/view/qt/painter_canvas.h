// A Canvas that paints with QPainter.
#pragma once

#include <QFont>
#include <QImage>
#include <QLine>
#include <QPainter>
#include <QPen>
#include <QPoint>
#include <QStaticText>
#include <string>
#include <unordered_map>
#include <vector>

#include "view/canvas.h"
#include "view/clip.h"

namespace vesmora {

/// Lives as long as the surface it serves: pens and labels are made once and
/// kept, so that a redraw allocates nothing per primitive. Lines in one pen
/// that follow each other are painted together.
class PainterCanvas final : public Canvas {
 public:
  PainterCanvas(const QFont& font, QColor background);

  /// `image`, of Format_RGB32, is drawn on until End; it must outlive the drawing.
  void Begin(QImage& image);
  void End();

  void Clear() override;
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override;
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override;
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override;
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;

 private:
  /// The picture's own pixels.
  struct Pixels {
    QRgb* first = nullptr;
    qsizetype stride = 0;  // pixels from row to row
    int width = 0;
    int height = 0;
  };

  struct Label {
    std::string text;
    QStaticText layout;
    TextSize size;
  };

  void UsePen(Pen pen);
  void DrawDots(const PixelLine& line, Rgb color);
  void SetDot(std::int64_t left, std::int64_t top, QRgb color) const;
  void Flush();
  void DrawLargeCircle(Pen pen, ScreenPoint center, double radius);
  const Label& LabelFor(std::string_view text);

  QFont font_;
  QColor background_;
  QPainter painter_;
  int width_ = 0;  // logical pixels
  int height_ = 0;
  std::unordered_map<std::uint32_t, QPen> pens_;
  std::uint32_t currentPen_ = 0;
  std::vector<QLine> lines_;  // waiting, all in the current pen
  Pixels pixels_;
  double ratio_ = 1;  // picture pixels per logical pixel
  int dotSide_ = 1;   // picture pixels
  std::vector<Label> labels_;
};

}  // namespace vesmora
