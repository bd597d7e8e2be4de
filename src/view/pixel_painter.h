// Lines and circles as single pixels of a picture in memory. Most lines of a map with many
// routes are dotted, for which general painters take several times as long.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "view/canvas.h"
#include "view/clip.h"

namespace vesmora {

/// The pixels of a picture, which belong to somebody else.
struct Picture {
  std::uint32_t* first = nullptr;
  std::ptrdiff_t stride = 0;  // pixels from row to row
  int width = 0;
  int height = 0;
};

/// What is set and what is left out along a line in turn, in pen widths.
using Dashes = std::array<int, 4>;

/// Dots are far apart, so that crowds of routes do not hide the map.
Dashes DashesOf(PenStyle style);

/// For the sides of a box: close enough that one of a few pixels is seen.
inline constexpr Dashes kBoxDots = {2, 1, 2, 1};

/// Touches nothing outside the picture. Colours are pixels as the picture holds them.
class PixelPainter {
 public:
  PixelPainter() = default;
  /// `penWidth`, at least 1: each point is the square of pixels right of and below it.
  PixelPainter(const Picture& picture, int penWidth) : picture_(picture), penWidth_(penWidth) {}

  void Fill(std::uint32_t color) const;
  /// Both ends belong to the line, at the first of which a dash starts. A solid line takes the
  /// same pixels in either direction. Coordinates: a few ten thousand at most.
  void DrawLine(const PixelLine& line, const Dashes& dashes, std::uint32_t color) const;
  /// The outline, symmetric about the point in the middle.
  void DrawCircle(int x, int y, int radius, const Dashes& dashes, std::uint32_t color) const;

 private:
  void SetPoint(int left, int top, std::uint32_t color) const;

  Picture picture_;
  int penWidth_ = 1;
};

}  // namespace vesmora
