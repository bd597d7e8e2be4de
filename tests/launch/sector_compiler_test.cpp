#include "launch/sector_compiler.h"

#include <gtest/gtest.h>

#include <cmath>

#include "app/file_commands.h"
#include "app/run_commands.h"
#include "support/bench.h"

namespace vesmora {
namespace {

/// What is computed may differ in the last bits; takes that over, to compare the rest.
void TakeOverWhatIsNear(MapDocument& wanted, const MapDocument& got) {
  const auto take = [](float& value, float other, float tolerance) {
    if (std::abs(value - other) <= tolerance) value = other;
  };
  constexpr float kFourUnits = 0x1p-22F;  // in the last place, at most
  for (int i = 0; i < kPolygonCapacity; ++i) {
    for (std::size_t k = 0; k < 3; ++k) {
      Normal& normal = wanted.polygons[i].edges[k];
      PolygonVertex& vertex = wanted.polygons[i].vertices[k];
      take(normal.x, got.polygons[i].edges[k].x, std::abs(normal.x) * kFourUnits);
      take(normal.y, got.polygons[i].edges[k].y, std::abs(normal.y) * kFourUnits);
      take(vertex.u, got.polygons[i].vertices[k].u, 4e-6F);
      take(vertex.v, got.polygons[i].vertices[k].v, 4e-6F);
    }
  }
  wanted.randomId = got.randomId;
}

TEST(SectorCompilerTest, ForeignMapsCompileToTheExpectedFiles) {
  Bench bench;
  for (const std::string name : {"terrain", "full", "small"}) {
    OpenMap(bench.editor, bench.PutMap(name + ".pmp", name + ".pmp"));
    ASSERT_TRUE(MenuRunCompile(bench.editor)) << name;
    ASSERT_TRUE(MenuSave(bench.editor)) << name;
    Bench got;
    Bench wanted;
    got.Load(bench.folder / (name + ".pmp"));
    wanted.Load(DataPath(name + "_compiled.pmp"));
    TakeOverWhatIsNear(wanted.map, got.map);
    EXPECT_EQ(got.map.sectors, wanted.map.sectors) << name;
    EXPECT_EQ(ImageOf(got.map), ImageOf(wanted.map)) << name;
  }
}

}  // namespace
}  // namespace vesmora
