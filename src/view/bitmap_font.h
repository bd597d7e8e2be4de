// Small letters of pixels for pictures that are made without a font: the digits of labels, and what
// names of files consist of. Small letters look like capitals; what there is no letter for is a
// box.
#pragma once

#include <cstdint>
#include <string_view>

#include "view/pixel_painter.h"

namespace vesmora {

inline constexpr int kBitmapTextHeight = 7;  // pixels
inline constexpr int kBitmapAdvance = 6;     // pixels from letter to letter

/// Of a text without other letters than those above.
constexpr int BitmapTextWidth(std::string_view text) {
  return static_cast<int>(text.size()) * kBitmapAdvance;
}

/// Draws the text, UTF-8, with its top left corner at a pixel, as far as the picture reaches.
void DrawBitmapText(const Picture& picture, int left, int top, std::string_view text,
                    std::uint32_t color);

}  // namespace vesmora
