// A Canvas into a picture in memory, with letters of its own: no toolkit and no font is needed.
#pragma once

#include "view/pixel_canvas.h"

namespace vesmora {

class MemoryCanvas final : public PixelCanvas {
 public:
  /// `picture` outlives the canvas. With `keepsGround` what is painted there already stays.
  MemoryCanvas(const Picture& picture, bool keepsGround)
      : PixelCanvas(kMapGround), picture_(picture), keepsGround_(keepsGround) {
    SetPicture(picture, 1);
  }

  void Clear() override {
    if (!keepsGround_) PixelCanvas::Clear();
  }
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override;
  TextSize MeasureText(std::string_view text) override;

 private:
  Picture picture_;
  bool keepsGround_;
};

}  // namespace vesmora
