// A picture of its own to draw on, of any screen. Letters are the toolkit's there.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "document/checksum.h"
#include "view/pixel_canvas.h"

namespace vesmora {

class Sheet final : public PixelCanvas {
 public:
  /// `ratio`: its pixels per window pixel.
  Sheet(int width, int height, float ratio)
      : PixelCanvas(kMapGround), pixels_(static_cast<std::size_t>(width * height)) {
    SetPicture({pixels_.data(), width, width, height}, ratio);
    Clear();
  }
  void DrawText(Rgb /*color*/, ScreenPoint /*topLeft*/, std::string_view /*text*/) override {}
  TextSize MeasureText(std::string_view /*text*/) override { return {}; }

  std::uint64_t Sum(std::uint64_t seed = 0) const {
    return Checksum(std::as_bytes(std::span(pixels_)), seed);
  }

 private:
  std::vector<std::uint32_t> pixels_;
};

}  // namespace vesmora
