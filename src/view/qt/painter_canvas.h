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

#include "view/pixel_canvas.h"

namespace vesmora {

inline constexpr QColor kMapBackground(kMapGround.red, kMapGround.green, kMapGround.blue);

/// Lives as long as the surface it serves: labels and their pens are made once
/// and kept, so that a redraw allocates nothing per primitive.
class PainterCanvas final : public PixelCanvas {
 public:
  PainterCanvas(const QFont& font, QColor background);

  /// Of labels from now on.
  void SetFont(const QFont& font);

  /// `image`, of Format_RGB32, is drawn on until End; it must outlive the drawing.
  void Begin(QImage& image);
  void End();

  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;

 private:
  struct Label {
    std::string text;
    QStaticText layout;
    TextSize size;
  };

  const Label& LabelFor(std::string_view text);
  const QPen& PenFor(Rgb color);

  QFont font_;
  QPainter painter_;  // of labels only
  std::vector<Label> labels_;
  std::unordered_map<std::uint32_t, QPen> pens_;
};

}  // namespace vesmora
