#include "view/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace vesmora {
namespace {

constexpr float kPiFloat = 3.14159265f;

ViewTransform View(float zoom = 1) {
  ViewTransform view;
  view.zoom = zoom;
  view.area = {1000, 700, 200, 100, 60};
  return view;
}

TEST(ViewTransformTest, HalfPixelsDifferAndTheWayBackHasNone) {
  ViewTransform view = View();
  EXPECT_EQ(view.LaskeRuutuX(0), 399.5f);
  EXPECT_EQ(view.LaskeRuutuY(0), 300.5f);
  EXPECT_EQ(view.LaskeRuutu2X(400), 0);
  EXPECT_EQ(view.LaskeRuutu2Y(300), 0);

  view.area = {1001, 701, 198, 99, 60};  // odd sizes have half a pixel of their own
  view.centerX = 10;
  view.centerY = -20;
  view.zoom = 2;
  EXPECT_EQ(view.LaskeRuutuX(15), 411);
  EXPECT_EQ(view.LaskeRuutuY(-15), 311.5f);
  EXPECT_EQ(view.LaskeRuutu2X(411.5f), 15);
  EXPECT_EQ(view.LaskeRuutu2Y(311), -15);

  for (const float zoom : kZoomLevels) {
    view.zoom = zoom;
    EXPECT_EQ(view.LaskeRuutu2X(view.LaskeRuutuX(64)), 64 - 0.5f / zoom);
    EXPECT_EQ(view.LaskeRuutu2Y(view.LaskeRuutuY(64)), 64 + 0.5f / zoom);
  }
}

TEST(ViewTransformTest, WorksInDoublePrecision) {
  ViewTransform view = View();
  view.area = {201, 199, 200, 200, 60};  // the middle cancels the half pixels
  EXPECT_EQ(view.LaskeRuutuX(1e-5f), 1e-5f);
  EXPECT_EQ(view.LaskeRuutuY(1e-5f), 1e-5f);
}

TEST(ViewTransformTest, WorldGridSnapRoundsTwice) {
  using Row = std::tuple<std::int16_t, float, double>;
  ViewTransform view = View();
  for (const auto& [grid, world, snapped] :
       {Row(25, 37.5f, 50), Row(25, 12.5f, 0), Row(25, 13.5f, 25), Row(25, -37.5f, -50),
        Row(5, 2.5f, 0), Row(100, 50, 0), Row(100, 150, 200), Row(100, -150, -200),
        // Beyond 16 bits, as the far position is that a zoom change reports.
        Row(10, 32767.9f, 32770), Row(25, -41000, -32775), Row(100, 1e30f, 32800),
        Row(5, std::numeric_limits<float>::quiet_NaN(), 0)}) {
    view.gridSize = grid;
    const WorldPoint point = view.SnapToGrid(world + 400, world + 300);
    EXPECT_EQ(point.x, snapped) << grid << " " << world;
    EXPECT_EQ(point.y, snapped) << grid << " " << world;
  }
}

TEST(ViewTransformTest, FixedGridSnapsToWindowPixels) {
  ViewTransform view = View(0.5f);
  view.gridSize = 100;
  view.fixedGrid = true;
  view.centerX = 7.3f;
  view.centerY = -0.7f;
  using Row = std::tuple<float, float>;
  for (const auto& [screen, pixel] :
       {Row(0, 0), Row(24, 0), Row(25, 0), Row(26, 50), Row(74, 50), Row(75, 100), Row(-26, -50),
        Row(-9999, -10000), Row(1e9f, 32767), Row(-1e9f, -32768)}) {
    const WorldPoint snapped = view.SnapToGrid(screen, screen);
    EXPECT_EQ(snapped.x, view.LaskeRuutu2X(pixel)) << screen;
    EXPECT_EQ(snapped.y, view.LaskeRuutu2Y(pixel)) << screen;
  }
  view.zoom = 0.25f;
  view.gridSize = 50;  // every 12.5 pixels: the place itself is rounded to even
  EXPECT_EQ(view.SnapToGrid(13, 38).x, view.LaskeRuutu2X(12));
  EXPECT_EQ(view.SnapToGrid(13, 38).y, view.LaskeRuutu2Y(38));
}

TEST(ViewTransformTest, PanningIsMeasuredFromThePreviousMove) {
  ViewTransform view = View(2);
  EXPECT_FALSE(TrackMouse(view, 100, 100));
  EXPECT_EQ(view.centerX, 0);
  view.panning = true;
  EXPECT_TRUE(TrackMouse(view, 130, 90));
  EXPECT_EQ(view.centerX, -15);
  EXPECT_EQ(view.centerY, 5);
  TrackMouse(view, 131, 90);
  EXPECT_EQ(view.centerX, -15.5f);
  view.panning = false;
  EXPECT_FALSE(TrackMouse(view, 500, 500));
  EXPECT_EQ(view.centerX, -15.5f);
  EXPECT_EQ(view.lastMouseX, 500);
}

TEST(ViewTransformTest, ZoomStepsEndAtTheListsEnds) {
  ViewTransform view = View();
  view.centerX = 5;
  EXPECT_TRUE(ZoomByWheel(view, 120));
  EXPECT_EQ(view.zoom, 2);
  for (const int delta : {0, 1, 119, 240, -240, -60, 360}) EXPECT_FALSE(ZoomByWheel(view, delta));
  EXPECT_EQ(view.zoom, 2);
  EXPECT_TRUE(ZoomIn(view));
  EXPECT_EQ(view.zoom, 4);
  EXPECT_FALSE(ZoomIn(view));
  EXPECT_FALSE(ZoomByWheel(view, 120));
  EXPECT_EQ(view.zoom, 4);
  for (const float zoom : {2.0f, 1.0f, 0.5f, 0.25f}) {
    EXPECT_TRUE(zoom == 1 ? ZoomOut(view) : ZoomByWheel(view, -120));
    EXPECT_EQ(view.zoom, zoom);
  }
  EXPECT_FALSE(ZoomOut(view));
  EXPECT_EQ(view.zoom, 0.25f);
  EXPECT_EQ(view.centerX, 5);
}

TEST(ViewTransformTest, GridsTooDenseForTheZoomAreCoarsened) {
  using Row = std::tuple<float, std::int16_t, std::int16_t>;
  for (const auto& [zoom, grid, coarsened] :
       {Row(0.25f, 5, 25), Row(0.5f, 10, 25), Row(0.5f, 25, 25), Row(1, 5, 10), Row(1, 10, 10),
        Row(2, 5, 5), Row(4, 5, 5), Row(0.25f, 0, 0), Row(0.25f, 100, 100)}) {
    ViewTransform view = View(zoom);
    view.gridSize = grid;
    EXPECT_EQ(CoarsenGrid(view), grid != coarsened);
    EXPECT_EQ(view.gridSize, coarsened) << grid << " at " << zoom;
  }
}

TEST(ViewTransformTest, PolarOffsetsOfAScreenWhoseYPointsDown) {
  const WorldOffset along = PolarToOffset(kPiFloat / 6, 10, false);
  EXPECT_NEAR(along.x, 8.660254, 1e-5);
  EXPECT_NEAR(along.y, -5, 1e-5);
  const WorldOffset across = PolarToOffset(kPiFloat / 6, 10, true);
  EXPECT_NEAR(across.x, 5, 1e-5);
  EXPECT_NEAR(across.y, 8.660254, 1e-5);

  using Row = std::tuple<float, float, float, float>;
  for (const auto& [dx, dy, angle, length] :
       {Row(1, 0, 0, 1), Row(0, -2, kPiFloat / 2, 2), Row(-3, 0, kPiFloat, 3),
        Row(0, 4, -kPiFloat / 2, 4), Row(3, 4, -0.9272952f, 5),
        Row(-3, -4, kPiFloat - 0.9272952f, 5),
        Row(-3, 4, kPiFloat + 0.9272952f, 5),  // beyond pi: no atan2
        Row(0, 0, -kPiFloat / 4, 1.4142136e-14f)}) {
    const PolarOffset polar = OffsetToPolar(dx, dy);
    EXPECT_NEAR(polar.angle, angle, 1e-6) << dx << " " << dy;
    EXPECT_FLOAT_EQ(polar.length, length) << dx << " " << dy;
  }
}

}  // namespace
}  // namespace vesmora
