// A Canvas that sets the pixels of a picture in memory. Labels are for those who have a font.
#pragma once

#include <cstdint>

#include "view/canvas.h"
#include "view/clip.h"
#include "view/pixel_painter.h"

namespace vesmora {

/// The ground of every drawing of a map. Every colour of the drawing, white edges and both grid
/// greys included, stands out from this one.
inline constexpr Rgb kMapGround = {172, 190, 172};

/// A pixel of a picture: 255, red, green and blue from the highest byte on.
constexpr std::uint32_t PixelOf(Rgb color) {
  return 0xFF000000U | std::uint32_t{color.red} << 16U | std::uint32_t{color.green} << 8U |
         color.blue;
}

/// Positions become whole pixels of the picture, not of the window: at any scale equal steps
/// differ by no more than one of them.
class PixelCanvas : public Canvas {
 public:
  void Clear() override;
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override;
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override;
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override;

 protected:
  explicit PixelCanvas(Rgb ground) : ground_(ground) {}

  /// `picture` is drawn on from now on and outlives the drawing. `ratio`: its pixels per window
  /// pixel.
  void SetPicture(const Picture& picture, float ratio);

  int Width() const { return width_; }  // picture pixels
  int Height() const { return height_; }
  float Ratio() const { return ratio_; }
  ScreenPoint InPicture(ScreenPoint point) const { return {point.x * ratio_, point.y * ratio_}; }
  const PixelPainter& Pixels() const { return pixels_; }

 private:
  /// A line in picture pixels.
  struct Side {
    ScreenPoint from;
    ScreenPoint to;
  };

  void DrawSide(const Side& side, const Dashes& dashes, Rgb color) const;
  void DrawLargeCircle(Pen pen, ScreenPoint center, double radius) const;

  Rgb ground_;
  PixelPainter pixels_;
  int width_ = 0;
  int height_ = 0;
  float ratio_ = 1;
};

}  // namespace vesmora
