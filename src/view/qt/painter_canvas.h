// A Canvas that paints into a QImage.
#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QStaticText>
#include <string>
#include <unordered_map>
#include <vector>

#include "view/canvas.h"
#include "view/pixel_painter.h"

namespace vesmora {

/// Every colour of the drawing, white edges and both grid greys included, stands out from this one.
inline constexpr QColor kMapBackground(172, 190, 172);

/// Lives as long as the surface it serves: labels and their pens are made once
/// and kept, so that a redraw allocates nothing per primitive. Positions become
/// whole pixels of the image, not of the window: at any scale equal steps differ
/// by no more than one of them.
class PainterCanvas final : public Canvas {
 public:
  PainterCanvas(const QFont& font, QColor background);

  /// Of labels from now on.
  void SetFont(const QFont& font);

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
  /// A line in image pixels.
  struct Side {
    ScreenPoint from;
    ScreenPoint to;
  };

  struct Label {
    std::string text;
    QStaticText layout;
    TextSize size;
  };

  ScreenPoint InImage(ScreenPoint point) const { return {point.x * ratio_, point.y * ratio_}; }
  void DrawSide(const Side& side, const Dashes& dashes, Rgb color) const;
  void DrawLargeCircle(Pen pen, ScreenPoint center, double radius) const;
  const Label& LabelFor(std::string_view text);
  const QPen& PenFor(Rgb color);

  QFont font_;
  QColor background_;
  QPainter painter_;  // of labels only
  PixelPainter pixels_;
  int width_ = 0;  // image pixels
  int height_ = 0;
  float ratio_ = 1;  // image pixels per window pixel
  std::vector<Label> labels_;
  std::unordered_map<std::uint32_t, QPen> pens_;
};

}  // namespace vesmora
