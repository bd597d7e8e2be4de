#include "view/memory_canvas.h"

#include "view/bitmap_font.h"

namespace vesmora {

void MemoryCanvas::DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) {
  const TextSize size = MeasureText(text);
  const bool isSeen = topLeft.x > -size.width && topLeft.y > -size.height &&
                      topLeft.x < static_cast<float>(Width()) &&
                      topLeft.y < static_cast<float>(Height());
  if (!isSeen) return;
  DrawBitmapText(picture_, ToPixel(topLeft.x), ToPixel(topLeft.y), text, PixelOf(color));
}

TextSize MemoryCanvas::MeasureText(std::string_view text) {
  return {static_cast<float>(BitmapTextWidth(text)), static_cast<float>(kBitmapTextHeight)};
}

}  // namespace vesmora
