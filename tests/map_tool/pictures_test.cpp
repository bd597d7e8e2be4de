// Pictures that are made without a toolkit: filled ground, labels, textures, SVG and PNG.
#include <gmock/gmock.h>
#include <zlib.h>

#include "map_tool/png_file.h"
#include "support/bench.h"
#include "support/map_builder.h"
#include "view/draw_map.h"
#include "view/filled_picture.h"
#include "view/memory_canvas.h"
#include "view/svg_canvas.h"

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

TEST(PicturesTest, ColoursRunIntoEachOtherOverTheBackground) {
  const auto map = OneTriangle();
  OwnPicture own(100, 100);
  const auto paint = [&](bool withPolygons) {
    PaintFilled(*map, PlainView(100, 100), nullptr, withPolygons, own.picture);
  };
  paint(true);
  EXPECT_EQ(own.At(0, 0), "c70001");
  EXPECT_EQ(own.At(99, 99), "0100c7");
  EXPECT_EQ(own.At(9, 11), own.At(9, 11));
  EXPECT_THAT(own.At(10, 11), testing::StartsWith("f"));  // red at the left upper corner
  EXPECT_EQ(own.At(86, 11).substr(2, 1), "f");            // green at the right one
  EXPECT_EQ(own.At(10, 87).substr(4, 1), "f");            // blue below
  EXPECT_EQ(own.At(60, 60).substr(2, 2), "00") << "outside";
  const std::string middle = own.At(35, 37);
  for (const std::size_t channel : {0U, 2U, 4U}) {
    EXPECT_NEAR(std::stoi(middle.substr(channel, 2), nullptr, 16), 85, 12) << middle;
  }
  paint(false);
  EXPECT_EQ(own.At(35, 37).substr(2, 2), "00");
  // Corners that are no place leave their polygon out; far ones cost nothing and fill all.
  map->polygons[0].vertices[1].x = NAN;
  paint(true);
  EXPECT_EQ(own.At(20, 20).substr(2, 2), "00");
  AddTriangle(*map, {{{-1e30f, -1e30f}, {1e30f, -1e30f}, {0, 1e30f}}});
  paint(true);
  EXPECT_EQ(own.At(50, 50), "000000");
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

TEST(PicturesTest, PngFilesHoldThePixels) {
  OwnPicture own(37, 11);
  for (std::size_t i = 0; i < own.pixels.size(); ++i) {
    own.pixels[i] = 0xFF000000U | static_cast<std::uint32_t>(i * 40503U) % 0x1000000U;
  }
  const Bytes png = map_tool::EncodePng(own.picture);
  const auto number = [&](std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
      value = value << 8U | std::to_integer<unsigned>(png[at + i]);
    return value;
  };
  EXPECT_EQ(number(16), 37U);
  EXPECT_EQ(number(20), 11U);
  // Chunks follow each other to the end, each with its check sum.
  std::vector<Bytef> rows((1 + 37 * 3) * 11);
  std::vector<std::string> types;
  for (std::size_t at = 8; at < png.size(); at += 12 + number(at)) {
    const auto* content = reinterpret_cast<const Bytef*>(png.data() + at + 4);
    types.emplace_back(content, content + 4);
    EXPECT_EQ(number(at + 8 + number(at)), crc32(0, content, 4 + number(at)));
    auto size = static_cast<uLongf>(rows.size());
    if (types.back() == "IDAT") {
      EXPECT_EQ(uncompress(rows.data(), &size, content + 4, number(at)), Z_OK);
      EXPECT_EQ(size, rows.size());
    }
  }
  EXPECT_THAT(types, testing::ElementsAre("IHDR", "IDAT", "IEND"));
  for (std::size_t i = 0; i < own.pixels.size(); ++i) {
    const Bytef* pixel = &rows[i / 37 * (1 + 37 * 3) + 1 + i % 37 * 3];
    EXPECT_EQ(pixel[0] * 0x10000U + pixel[1] * 0x100U + pixel[2], own.pixels[i] & 0xFFFFFFU);
  }
}

/// Both canvases show each object of a map, labels included, and nothing of what is hidden.
TEST(PicturesTest, CanvasesDrawWhatIsShown) {
  auto map = std::make_unique<MapDocument>();
  AddSpawn(*map, 0, 0, kRedTeam);
  AddWaypoint(*map, 30, 0, 2);
  OwnPicture own(100, 60);
  MemoryCanvas memory(own.picture, false);
  SvgCanvas svg(100, 60);
  const Selection selection;
  ShowOptions show;
  ViewTransform view = PlainView(100, 60);
  const auto draw = [&](Canvas& canvas) { DrawMap({*map, selection, view, show, {}}, canvas); };
  const auto count = [&](const std::string& color) {
    int found = 0;
    for (int i = 0; i < 6000; ++i) found += own.At(i % 100, i / 100) == color ? 1 : 0;
    return found;
  };
  draw(memory);
  EXPECT_GT(count("800000"), 60) << "two red circles";
  EXPECT_EQ(count("000080"), 4 * 14 + 15) << "a square and a label";
  draw(svg);
  EXPECT_THAT(svg.TakeElements(),
              testing::AllOf(testing::HasSubstr("stroke=\"#800000\" cx=\"50\" cy=\"31\" r=\"10\""),
                             testing::HasSubstr(">2</text>"),
                             testing::HasSubstr("<path stroke=\"#000080\" d=\"M")));
  show.showFlags.fill(0);
  draw(memory);
  EXPECT_EQ(count("acbeac"), 6000);
  draw(svg);
  EXPECT_THAT(svg.TakeElements(), testing::Not(testing::HasSubstr("#800000")));
  EXPECT_EQ(SvgText("a<b>&\x01\xff\xc3\xa4"), "a&lt;b>&amp;??\xc3\xa4");
}

}  // namespace
}  // namespace vesmora
