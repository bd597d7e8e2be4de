#include "document/save_preparation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <tuple>

#include "document/geometry.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

class SavePreparationTest : public testing::Test {
 protected:
  const std::unique_ptr<MapDocument> holder_ = std::make_unique<MapDocument>();
  MapDocument& document_ = *holder_;
};

TEST_F(SavePreparationTest, OrderFollowsTheAnglesFromTheFirstCorner) {
  using Row = std::tuple<float, float, float, float, bool>;
  for (const auto& [x1, y1, x2, y2, ordered] :
       {Row(10, 0, 0, 10, false), Row(0, 10, 10, 0, true),
        // Across the cut where the angle jumps from pi to -pi.
        Row(-10, 1, -10, -1, false), Row(-10, -1, -10, 1, true),
        // No area: all on one spot or on one line, exactly at the borders.
        Row(0, 0, 0, 0, true), Row(10, 0, 20, 0, true), Row(20, 0, 10, 0, false),
        Row(-10, 0, -20, 0, true), Row(10, 0, -10, 0, false), Row(-10, 0, 10, 0, true)}) {
    document_.lastPolygon = -1;
    AddTriangle(document_, {{{0, 0}, {x1, y1}, {x2, y2}}});
    EXPECT_EQ(PolygonIsOrdered(document_, 0), ordered) << x1 << "," << y1 << " " << x2 << "," << y2;
  }
}

TEST_F(SavePreparationTest, WindingFixSwapsOnlyWhatBelongsToThePlace) {
  const PolygonVertex first = {0, 0, 3, 4, {5, 6, 7, 8}, 9, 10};
  const PolygonVertex second = {10, 0, 13, 14, {15, 16, 17, 18}, 19, 20};
  const PolygonVertex third = {0, 10, 23, 24, {25, 26, 27, 28}, 29, 30};
  document_.polygons[0].vertices = {first, second, third};
  document_.polygons[1].vertices = {first, second, third};
  document_.lastPolygon = 0;
  document_.normals[0] = {};  // passable polygons are turned, too
  KorjaaSuunnat(document_);
  const auto& corners = document_.polygons[0].vertices;
  EXPECT_EQ(corners[0], (PolygonVertex{10, 0, 3, 4, {15, 16, 17, 8}, 19, 20}));
  EXPECT_EQ(corners[1], (PolygonVertex{0, 0, 13, 14, {5, 6, 7, 18}, 9, 10}));
  EXPECT_EQ(corners[2], third);
  EXPECT_EQ(document_.polygons[1].vertices[0], first) << "behind the last one";
}

TEST_F(SavePreparationTest, NormalsOfTurnedTrianglesUnlessNoneHasAnY) {
  const PolygonNormals passable = {{{{1, 0, 5}, {0, -0.0f, 6}, {0, 0, 7}}}};
  const PolygonNormals solid = {{{{0, 0, 5}, {7, 0, 6}, {0, 1e-30f, 7}}}};
  for (int i = 0; i < 2; ++i) AddTriangle(document_, {{{0, 0}, {10, 0}, {0, 10}}});
  document_.normals[0] = passable;
  document_.normals[1] = solid;
  PrepareForSave(document_);
  EXPECT_EQ(document_.normals[0], passable);
  const float diagonal = std::sqrt(0.5f);
  EXPECT_EQ(document_.normals[1],
            (PolygonNormals{{{{1e-15f, -1, 5}, {-1, -1e-15f, 6}, {diagonal, diagonal, 7}}}}));
}

TEST_F(SavePreparationTest, NormalsAreNeverExactlyZero) {
  constexpr float kHuge = std::numeric_limits<float>::max();
  const auto sizes = {0.0f, -0.0f, 1e-45f, -1e-30f, 1.0f, -50.0f, 1e30f, kHuge, -kHuge, HUGE_VALF};
  for (const float a : sizes) {
    for (const float b : sizes) {
      const EdgeDirection normal = EdgeNormal(a, b);
      EXPECT_TRUE(normal.x != 0 && normal.y != 0) << a << " " << b;
      if (std::isfinite(a) && std::isfinite(b)) {
        EXPECT_NEAR(std::hypot(normal.x, normal.y), 1, 1e-6) << a << " " << b;
      }
    }
  }
  EXPECT_EQ(EdgeNormal(3, 4).x, 0.8f);
  EXPECT_EQ(EdgeNormal(3, 4).y, -0.6f);
  EXPECT_EQ(EdgeNormal(kHuge, 0).x, 1e-14f);
}

TEST_F(SavePreparationTest, SnapsSpawns) {
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  using Row = std::tuple<std::int32_t, std::int32_t, std::int32_t, std::int32_t, int>;
  for (const auto& [x, y, snappedX, snappedY, ySign] :
       {Row(76800, 25600, 76800, 25600, 0), Row(-76800, 25600, -76800, 25599, 0),
        Row(-76800, 0, -76800, -1, 255), Row(-129, 0, -256, -1, 255),
        Row(-77, 25700, 0, 25600, 0),                        // x counts as it is after rounding
        Row(128, 384, 0, 512, 0), Row(-128, -128, 0, 0, 0),  // halves to even
        Row(-384, 127, -512, -1, 255), Row(-384, 128, -512, 255, 0), Row(0, -129, 0, -256, 255),
        Row(kMax, kMax, kMax, kMax, 0), Row(kMin, kMin, kMin, kMin, 255)}) {
    document_.spawns[0] = {256, x, y, 77, 2, {8, 9}};
    document_.spawns[1] = {1, 77, 77, 77, 0, {}};
    document_.lastSpawn = 0;
    SnapSpawns(document_);
    const SpawnPoint expected = {256, snappedX, snappedY, static_cast<std::uint8_t>(ySign),
                                 2,   {8, 9}};
    EXPECT_EQ(document_.spawns[0], expected)
        << x << "," << y << " became " << document_.spawns[0].x << "," << document_.spawns[0].y;
    EXPECT_EQ(document_.spawns[1].x, 77);
    SnapSpawns(document_);
    EXPECT_EQ(document_.spawns[0], expected) << "moved by a second save";
  }
}

}  // namespace
}  // namespace vesmora
