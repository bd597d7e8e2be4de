// Textures: what of a bitmap is seen on a polygon.
#include <gmock/gmock.h>

#include "support/bench.h"
#include "support/map_builder.h"
#include "view/filled_picture.h"

namespace vesmora {
namespace {

struct OwnPicture {
  explicit OwnPicture(int width, int height)
      : pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)),
        picture{pixels.data(), width, width, height} {}

  std::vector<std::uint32_t> pixels;
  Picture picture;

  /// "rrggbb"
  std::string At(int x, int y) const {
    std::array<char, 16> text{};
    const std::uint32_t pixel = picture.first[y * picture.stride + x];
    std::snprintf(text.data(), text.size(), "%06x", pixel & 0xFFFFFFU);
    return text.data();
  }
};

/// One pixel a world unit, world 0,0 in the middle.
ViewTransform PlainView(int width, int height) {
  ViewTransform view;
  view.area = {.width = width, .height = height};
  return view;
}

/// A map whose one polygon covers 40 x 40 units with a corner of each plain colour.
std::unique_ptr<MapDocument> OneTriangle() {
  auto map = std::make_unique<MapDocument>();
  map->backgroundColor1 = {0, 0, 200, 255};
  map->backgroundColor2 = {200, 0, 0, 255};
  Polygon& polygon = AddTriangle(*map, {{{-40, -40}, {40, -40}, {-40, 40}}});
  polygon.vertices[0].color = {0, 0, 255, 0};
  polygon.vertices[1].color = {0, 255, 0, 0};
  polygon.vertices[2].color = {255, 0, 0, 0};
  return map;
}

TEST(PicturesTest, TexturesOfBitmapsAreLaidOver) {
  // Two by two: red, green; blue, white, the lower row first, each row padded to four bytes.
  std::vector<unsigned char> file(54);
  file[0] = 'B';
  file[1] = 'M';
  file[10] = 54;
  file[14] = 40;
  file[18] = file[22] = 2;
  file[28] = 24;
  for (const int value : {255, 0, 0, 255, 255, 255, 0, 0, 0, 0, 255, 0, 255, 0, 0, 0}) {
    file.push_back(static_cast<unsigned char>(value));
  }
  const auto read = [&] { return ReadBitmap(std::as_bytes(std::span(file))); };
  const auto texture = read();
  ASSERT_TRUE(texture.has_value());
  const auto at = [&](double u, double v) { return texture->At(u, v) & 0xFFFFFFU; };
  EXPECT_EQ(at(0.1, 0.1), 0xFF0000U);
  EXPECT_EQ(at(-0.1, 3.2), 0x00FF00U);
  EXPECT_EQ(at(0.1, -0.1), 0x0000FFU);
  EXPECT_EQ(at(NAN, 1e300), 0xFF0000U);
  const auto map = OneTriangle();
  for (PolygonVertex& corner : map->polygons[0].vertices) {
    corner.color = {255, 255, 128, 0};
    corner.u = corner.x / 80 + 1.5f;
    corner.v = corner.y / 80 + 1.5f;
  }
  OwnPicture own(100, 100);
  PaintFilled(*map, PlainView(100, 100), &*texture, true, own.picture);
  EXPECT_EQ(own.At(20, 20), "800000");
  EXPECT_EQ(own.At(60, 20), "00ff00");
  // Anything else is no texture.
  for (const std::size_t place : {0U, 10U, 18U, 22U, 28U, 30U}) {
    const unsigned char before = std::exchange(file[place], 250);
    EXPECT_FALSE(read().has_value()) << place;
    file[place] = before;
  }
  file.pop_back();
  EXPECT_FALSE(read().has_value()) << "cut short";
}

}  // namespace
}  // namespace vesmora
