#include "view/filled_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "document/texture_mapping.h"
#include "view/palette.h"
#include "view/pixel_canvas.h"

namespace vesmora {
namespace {

/// What is worked out at each corner and changes evenly between them.
struct Shade {
  double red = 0;
  double green = 0;
  double blue = 0;
  double u = 0;
  double v = 0;

  void Add(const Shade& other, double times) {
    red += other.red * times;
    green += other.green * times;
    blue += other.blue * times;
    u += other.u * times;
    v += other.v * times;
  }
};

struct Corner {
  double x = 0;  // picture pixels
  double y = 0;
  Shade shade;
};

using Corners = std::array<Corner, 3>;

Corners CornersOf(const Polygon& polygon, const ViewTransform& view) {
  Corners corners;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const PolygonVertex& vertex = polygon.vertices[i];
    const MapColor color = vertex.color;
    corners[i] = {view.LaskeRuutuX(vertex.x), view.LaskeRuutuY(vertex.y),
                  Shade{static_cast<double>(color.red), static_cast<double>(color.green),
                        static_cast<double>(color.blue), vertex.u, vertex.v}};
  }
  return corners;
}

double DoubleArea(const Corner& a, const Corner& b, double x, double y) {
  return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
}

/// Where a row of pixels crosses the triangle; empty when it does not.
struct Span {
  double left = INFINITY;
  double right = -INFINITY;
};

Span CrossedAt(const Corners& corners, double y) {
  Span span;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Corner& a = corners[i];
    const Corner& b = corners[(i + 1) % corners.size()];
    if (a.y == b.y || y < std::min(a.y, b.y) || y > std::max(a.y, b.y)) continue;
    const double x = a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x);
    span.left = std::min(span.left, x);
    span.right = std::max(span.right, x);
  }
  return span;
}

std::uint8_t Channel(double value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));  // never NaN: corners are finite
}

std::uint32_t PixelOf(const Shade& shade, const Texture* texture) {
  Rgb color{Channel(shade.red), Channel(shade.green), Channel(shade.blue)};
  if (texture != nullptr) {
    const std::uint32_t pixel = texture->At(shade.u, shade.v);
    const auto times = [](std::uint8_t value, std::uint32_t by) {
      return static_cast<std::uint8_t>(value * (by & 255U) / 255U);
    };
    color = {times(color.red, pixel >> 16U), times(color.green, pixel >> 8U),
             times(color.blue, pixel)};
  }
  return PixelOf(color);
}

/// The first pixel whose middle is not before the position, within 0..count.
int FirstPixel(double position, int count) {
  return static_cast<int>(std::clamp(std::ceil(position - 0.5), 0.0, static_cast<double>(count)));
}

class TrianglePainter {
 public:
  TrianglePainter(const Corners& corners, const Texture* texture, const Picture& picture)
      : corners_(corners), texture_(texture), picture_(picture) {}

  void Paint() {
    const auto& [a, b, c] = corners_;
    area_ = DoubleArea(a, b, c.x, c.y);
    if (!std::isfinite(area_) || area_ == 0) return;
    const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
    const int end = FirstPixel(bottom, picture_.height);
    for (int y = FirstPixel(top, picture_.height); y < end; ++y) PaintRow(y);
  }

 private:
  /// Weighs the corners by the areas opposite to them.
  Shade ShadeAt(double x, double y) const {
    const auto& [a, b, c] = corners_;
    const double ofA = DoubleArea(b, c, x, y) / area_;
    const double ofB = DoubleArea(c, a, x, y) / area_;
    Shade shade;
    shade.Add(a.shade, ofA);
    shade.Add(b.shade, ofB);
    shade.Add(c.shade, 1 - ofA - ofB);
    return shade;
  }
  void PaintRow(int y) const {
    const double middle = y + 0.5;
    const Span span = CrossedAt(corners_, middle);
    if (!(span.left <= span.right)) return;
    const int begin = FirstPixel(span.left, picture_.width);
    const int end = FirstPixel(span.right, picture_.width);
    if (begin >= end) return;
    Shade shade = ShadeAt(begin + 0.5, middle);
    Shade step = ShadeAt(begin + 1.5, middle);
    step.Add(shade, -1);
    std::uint32_t* pixel = picture_.first + y * picture_.stride + begin;
    for (int x = begin; x < end; ++x, shade.Add(step, 1)) *pixel++ = PixelOf(shade, texture_);
  }

  const Corners& corners_;
  const Texture* texture_;
  const Picture& picture_;
  double area_ = 0;
};

bool AreFinite(const Polygon& polygon) {
  return std::ranges::all_of(polygon.vertices, [](const PolygonVertex& corner) {
    return std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.u) &&
           std::isfinite(corner.v);
  });
}

void PaintBackground(const MapDocument& document, const Picture& picture) {
  const MapColor top = document.backgroundColor1;
  const MapColor bottom = document.backgroundColor2;
  for (int y = 0; y < picture.height; ++y) {
    const double part = (y + 0.5) / picture.height;
    const auto mixed = [part](std::uint8_t from, std::uint8_t to) {
      return Channel(from + (to - from) * part);
    };
    const Rgb color{mixed(top.red, bottom.red), mixed(top.green, bottom.green),
                    mixed(top.blue, bottom.blue)};
    std::fill_n(picture.first + y * picture.stride, picture.width, PixelOf(color));
  }
}

}  // namespace

void PaintFilled(const MapDocument& document, const ViewTransform& view, const Texture* texture,
                 bool withPolygons, const Picture& picture) {
  PaintBackground(document, picture);
  if (!withPolygons) return;
  for (const Polygon& polygon : document.polygons.Used()) {
    if (!AreFinite(polygon)) continue;
    const Corners corners = CornersOf(polygon, view);
    const bool isTextured = std::ranges::any_of(polygon.vertices, HasTexture);
    TrianglePainter(corners, isTextured ? texture : nullptr, picture).Paint();
  }
}

}  // namespace vesmora
