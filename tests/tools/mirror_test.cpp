#include <gmock/gmock.h>

#include <tuple>

#include "document/numbers.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/edit_commands.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class MirrorTest : public testing::Test, protected ToolBench {};

TEST_F(MirrorTest, WithNothingSelectedOnlyTheReasonIsTold) {
  for (const auto command : {MenuMirror, MenuFlip}) {
    command(editing);
    ExpectRefusal("You need select something at first.");
    EXPECT_THAT(TakeEvents(), ElementsAre("Show Problem"));
    EXPECT_THAT(Steps(), testing::IsEmpty());
  }
}

TEST_F(MirrorTest, EverythingTurnsOverAboutTheMiddleOfTheBox) {
  for (const bool isMirror : {true, false}) {
    for (const bool noCorrection : {false, true}) {
      ToolBench bench;
      MapDocument& document = bench.map;
      Polygon& polygon = AddTriangle(document, {{{10, 20}, {60, 20}, {10, 90}}});
      polygon.vertices[0].u = 0;
      polygon.vertices[0].v = 0;
      polygon.vertices[1].u = 0.75f;
      polygon.vertices[1].v = -0.25f;
      AddTriangle(document, {{{1, 2}, {3, 4}, {5, 6}}});
      AddSpawn(document, 12, 34, 0);
      AddScenery(document, 21.5f, 43.5f, 3) = {1,     3,    {9, 9}, 7,  8,   21.5f,
                                               43.5f, 0.5f, 2,      -3, 128, {}};
      AddCollider(document, 5, 6, 40);
      AddWaypoint(document, -3, -4, 2, {1}).botSettings = {1, 2, 3, 4, 5};
      SelectEverything(bench.selection, document);
      bench.selection.vertices.last = 1;  // two corners of the first triangle
      // Not the bounds of what is listed: about 80 and about 60.
      const SelectionBox box{-40, 200, 10, 110};
      bench.selection.box = box;
      bench.state.tool.next.noTextureCorrection = noCorrection;
      const DocumentState before = StateOf(document);
      const auto untouched =
          std::tuple(document.normals, document.polygons[1], polygon.vertices[2]);
      isMirror ? MenuMirror(bench.editing) : MenuFlip(bench.editing);

      const auto& corner = polygon.vertices;
      const SceneryObject& scenery = document.sceneries[0];
      const Collider& collider = document.colliders[0];
      const Waypoint& waypoint = document.waypoints[0];
      if (isMirror) {
        EXPECT_EQ(std::tuple(corner[0].x, corner[0].y, corner[1].x, corner[1].y),
                  std::tuple(150, 20, 100, 20));
        EXPECT_EQ(std::tuple(corner[0].u, corner[0].v, corner[1].u, corner[1].v),
                  std::tuple(1, 0, 0.25f, -0.25f));
        EXPECT_EQ(std::tuple(collider.x, collider.y, collider.radius), std::tuple(155, 6, 40));
        EXPECT_EQ(std::tuple(scenery.x, scenery.y, scenery.scaleX, scenery.scaleY),
                  std::tuple(138.5f, 43.5f, 2, 3));
        EXPECT_EQ(std::tuple(document.spawns[0].x, document.spawns[0].y),
                  std::tuple(148 * 256, 34 * 256));
        EXPECT_EQ(std::tuple(waypoint.x, waypoint.y), std::tuple(163 * 256, -4 * 256));
        EXPECT_THAT(waypoint.botSettings, ElementsAre(2, 1, 3, 4, 5));
      } else {
        EXPECT_EQ(std::tuple(corner[0].x, corner[0].y, corner[1].x, corner[1].y),
                  std::tuple(10, 100, 60, 100));
        EXPECT_EQ(std::tuple(corner[0].u, corner[0].v, corner[1].u, corner[1].v),
                  std::tuple(0, 1, 0.75f, 1.25f));
        EXPECT_EQ(std::tuple(collider.x, collider.y, collider.radius), std::tuple(5, 114, 40));
        EXPECT_EQ(std::tuple(scenery.x, scenery.y, scenery.scaleX, scenery.scaleY),
                  std::tuple(21.5f, 76.5f, -2, -3));
        EXPECT_EQ(std::tuple(document.spawns[0].x, document.spawns[0].y),
                  std::tuple(12 * 256, 86 * 256));
        EXPECT_EQ(std::tuple(waypoint.x, waypoint.y), std::tuple(-3 * 256, 124 * 256));
        EXPECT_THAT(waypoint.botSettings, ElementsAre(1, 2, 4, 3, 5));
      }
      EXPECT_FLOAT_EQ(scenery.rotation, 3.1415927f - 0.5f);
      EXPECT_THAT(std::span(waypoint.connections).first(1), ElementsAre(1));
      EXPECT_EQ(std::tuple(document.normals, document.polygons[1], polygon.vertices[2]), untouched)
          << "no winding or normal is put right before the save";
      EXPECT_EQ(bench.Listed(), "v0.0 v0.1 s0 o0 c0 w0");
      EXPECT_EQ(bench.selection.box, box);
      EXPECT_EQ(bench.events.back(), "RedrawMap");
      EXPECT_THAT(bench.Steps(), ElementsAre(isMirror ? "Mirror" : "Flip"));
      EXPECT_EQ(bench.BeforeNewestStep(), before);
    }
  }
}

TEST_F(MirrorTest, FixedPointPlacesRoundHalvesToEven) {
  constexpr float kCenter = 1.0f / 1024;  // a quarter of the smallest step
  for (const auto& [x, mirrored] :
       {std::pair(0, 0), {1, 0}, {2, -2}, {-1, 2}, {-2, 2}, {256, -256}, {-256, 256}}) {
    for (const auto command : {MenuMirror, MenuFlip}) {
      ToolBench bench;
      SpawnPoint& spawn = AddSpawn(bench.map, 0, 0, 0);
      spawn.x = spawn.y = x;
      Waypoint& waypoint = AddWaypoint(bench.map, 0, 0, 1);
      waypoint.x = waypoint.y = x * 256;  // the snapshot puts it on whole units
      SelectEverything(bench.selection, bench.map);
      bench.selection.box = {kCenter - 4, kCenter + 4, kCenter - 4, kCenter + 4};
      command(bench.editing);
      const bool isMirror = command == MenuMirror;
      EXPECT_EQ(isMirror ? spawn.x : spawn.y, mirrored) << x;
      EXPECT_EQ(isMirror ? spawn.y : spawn.x, x);
      EXPECT_EQ(isMirror ? waypoint.x : waypoint.y, x == 0 ? 0 : -x * 256) << x;
    }
  }
}

TEST_F(MirrorTest, APickedSpawnGoesToTheOtherSideOfTheClick) {
  AddSpawn(map, 102, 51, 0);
  Click(100, 50);
  ASSERT_EQ(Listed(), "s0");
  MenuMirror(editing);
  EXPECT_EQ(std::tuple(map.spawns[0].x, map.spawns[0].y), std::tuple(98 * 256, 51 * 256));
  MenuFlip(editing);
  EXPECT_EQ(std::tuple(map.spawns[0].x, map.spawns[0].y), std::tuple(98 * 256, 49 * 256));
}

TEST_F(MirrorTest, TwiceIsAsBefore) {
  AddScenery(map, 20, 30, 1) = {1, 1, {}, 10, 10, 20, 30, 1.25f, 2, 0.5f, 255, {}};
  SelectEverything(selection, map);
  const SceneryObject before = map.sceneries[0];
  for (const auto command : {MenuMirror, MenuFlip}) {
    command(editing);
    EXPECT_NE(map.sceneries[0].rotation, before.rotation);
    command(editing);
    EXPECT_NEAR(map.sceneries[0].rotation, before.rotation, 1e-6);
    EXPECT_EQ(std::tuple(map.sceneries[0].scaleX, map.sceneries[0].scaleY),
              std::tuple(before.scaleX, before.scaleY));
    EXPECT_EQ(std::tuple(map.sceneries[0].x, map.sceneries[0].y), std::tuple(20, 30));
  }
}

}  // namespace
}  // namespace vesmora
