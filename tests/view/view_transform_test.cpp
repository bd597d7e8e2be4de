#include "view/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "view/clip.h"

namespace vesmora {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

ViewTransform View(float zoom = 1) { return {.zoom = zoom, .area = {1000, 700, 200, 100, 60}}; }

TEST(ViewTransformTest, TheWorldGridSnapRoundsTwiceAndTheFixedOneToPixels) {
  using Row = std::tuple<std::int16_t, float, double>;
  for (const auto& [grid, world, snapped] :
       {Row(25, 37.5f, 50), Row(25, 12.5f, 0), Row(25, 13.5f, 25), Row(100, -150, -200),
        // Beyond 16 bits, as the far position is that a zoom change reports.
        Row(10, 32767.9f, 32770), Row(25, -41000, -32775), Row(5, kNan, 0)}) {
    ViewTransform view = View();
    view.gridSize = grid;
    const WorldPoint point = view.SnapToGrid(world + 400, world + 300);
    EXPECT_TRUE(point.x == snapped && point.y == snapped) << grid << " " << world;
  }
  using Fixed = std::tuple<float, std::int16_t, float, float>;
  for (const auto& [zoom, grid, screen, pixel] :
       {Fixed(0.5f, 100, 24, 0), Fixed(0.5f, 100, 26, 50), Fixed(0.5f, 100, 1e9f, 32767),
        // Every 12.5 pixels: the place itself is rounded to even.
        Fixed(0.25f, 50, 13, 12), Fixed(0.25f, 50, 38, 38)}) {
    ViewTransform view = View(zoom);
    view.gridSize = grid;
    view.fixedGrid = true;
    view.centerX = 7.3f;
    const WorldPoint snapped = view.SnapToGrid(screen, screen);
    EXPECT_EQ(snapped.x, view.LaskeRuutu2X(pixel)) << screen;
    EXPECT_EQ(snapped.y, view.LaskeRuutu2Y(pixel)) << screen;
  }
}

TEST(ClipTest, LinesAreCutWithoutBendingAndWhatCannotBeSeenIsLeftOut) {
  EXPECT_EQ(ClipLine({0.5f, 1.5f}, {99.49f, 50}, 100, 50), (PixelLine{1, 2, 99, 50}));
  EXPECT_EQ(ClipLine({-3, -3.5f}, {-0.5f, -4}, 100, 50), (PixelLine{-3, -3, 0, -4}));
  for (const float reach : {1e3f, 1e9f, 1e12f}) {
    const auto line = ClipLine({-reach, -reach}, {reach, reach}, 100, 50);
    ASSERT_TRUE(line) << reach;
    EXPECT_TRUE(line->x1 == line->y1 && line->x2 == line->y2) << reach;
    EXPECT_TRUE(line->x1 <= 0 && line->x1 > -1000 && line->x2 >= 50 && line->x2 < 1000) << reach;
  }
  EXPECT_FALSE(ClipLine({-1e9f, 500}, {1e9f, 500}, 100, 50));
  EXPECT_FALSE(ClipLine({200, 0}, {0, -200}, 100, 50));
  EXPECT_FALSE(ClipLine({kNan, 10}, {50, 10}, 100, 50));
  EXPECT_FALSE(ClipLine({10, 10}, {HUGE_VALF, 10}, 100, 50));
  using Row = std::tuple<float, float, int, bool>;
  for (const auto& [x, y, radius, touches] :
       {Row(kNan, 10, 5, false), Row(10, -HUGE_VALF, 5, false), Row(10, 10, -1, false),
        Row(110, 60, 10, false), Row(105, 55, 10, true), Row(50, 25, 32767, false),
        Row(-32000, 25, 32050, true),
        Row(50, -40, 105, false)}) {  // beside the corner, then all round the window
    EXPECT_EQ(CircleTouches({x, y}, radius, 100, 50), touches) << x << "," << y;
  }
}

}  // namespace
}  // namespace vesmora
