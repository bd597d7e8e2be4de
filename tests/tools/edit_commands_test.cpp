// What commands of the Edit menu do to the records.
#include "tools/edit_commands.h"

#include <gmock/gmock.h>

#include <cmath>

#include "document/geometry.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

struct EditBench : Bench {
  EditBench() { AddNumbered(map, 6); }
};

class EditCommandsTest : public testing::Test, protected EditBench {};

TEST_F(EditCommandsTest, MirrorAndFlipTurnOverAboutTheMiddleOfTheBox) {
  for (const bool isMirror : {true, false}) {
    EditBench bench;
    MapDocument& turned = bench.map;
    turned.sceneries[1].rotation = 0.5f;
    turned.sceneries[1].scaleX = 2;
    turned.waypoints[1].botSettings = {1, 2, 3, 4, 5};
    turned.polygons[0].vertices[1].u = turned.polygons[0].vertices[1].v = 0.75f;
    ListVertices(bench.selection, {{0, 0}, {0, 1}});
    ListSlots(bench.selection, {1});
    bench.selection.box = {-40, 200, 10, 110};              // not the bounds of what is listed
    bench.editor.tool.next.noTextureCorrection = isMirror;  // concerns moving only
    const DocumentState before = StateOf(turned);
    const auto expected = std::make_unique<MapDocument>(turned);
    const auto turn = [isMirror](auto& record, auto unit) {
      auto& place = isMirror ? record.x : record.y;
      place = (isMirror ? 160 : 120) * unit - place;
    };
    for (const std::size_t corner : {0U, 1U}) {
      PolygonVertex& vertex = expected->polygons[0].vertices[corner];
      turn(vertex, 1.0f);
      float& texture = isMirror ? vertex.u : vertex.v;
      texture = 1 - texture;  // also where there is no texture
    }
    turn(expected->spawns[1], 256);
    turn(expected->colliders[1], 1.0f);
    turn(expected->waypoints[1], 256);
    SceneryObject& scenery = expected->sceneries[1];
    turn(scenery, 1.0f);
    (isMirror ? scenery.scaleY : scenery.scaleX) *= -1;
    scenery.rotation = kPi - 0.5f;
    auto& bots = expected->waypoints[1].botSettings;
    isMirror ? std::swap(bots[0], bots[1]) : std::swap(bots[2], bots[3]);
    isMirror ? MenuMirror(bench.editor) : MenuFlip(bench.editor);
    EXPECT_TRUE(StateOf(turned) == StateOf(*expected));
    EXPECT_TRUE(bench.BeforeNewestStep() == before);
    EXPECT_THAT(bench.Steps(), ElementsAre(isMirror ? "Mirror" : "Flip"));
  }
}

TEST_F(EditCommandsTest, DeleteClosesTheGapsAndClearsTheVacatedSlot) {
  ListVertices(selection, {{0, 1}, {2, 0}, {2, 1}, {2, 2}, {4, 0}});
  ListSlots(selection, {1, 2, 4});
  Waypoint waypoint = map.waypoints[5];
  SceneryObject scenery = map.sceneries[5];
  map.spawns[5].ySign = 255;
  MenuDelete(editor);
  EXPECT_THAT(NumbersIn(map), ElementsAre("135", "135", "035", "035", "035", "035"));
  // What moved down last lies there still, but for the fields that tell a used slot.
  EXPECT_EQ(map.polygons[3].vertices[2].color, (MapColor{5, 5, 5, 0}));
  EXPECT_EQ(map.spawns[3], (SpawnPoint{0, 0, 0, 0, 0, {5, 5}}));
  EXPECT_EQ(map.colliders[3], (Collider{0, {5, 5}, map.colliders[5].authorChar, 0, 0, 0}));
  scenery.active = scenery.type = 0;
  scenery.x = scenery.y = scenery.scaleX = scenery.scaleY = 0;
  EXPECT_EQ(map.sceneries[3], scenery);
  waypoint.active = waypoint.path = waypoint.x = waypoint.y = waypoint.id = 0;
  EXPECT_EQ(map.waypoints[3], waypoint);
}

TEST_F(EditCommandsTest, OfEqualConnectionsToADeletedWaypointTheSecondSurvives) {
  map = {};
  AddWaypoint(map, 0, 0, 1, {2, 2, 3, 2, 9});
  for (int i = 0; i < 2; ++i) AddWaypoint(map, 0, 0, 1);
  selection.waypoints.Append(1);
  MenuDelete(editor);
  EXPECT_THAT(LinksOf(map, 0), ElementsAre(2, 2, 9)) << "and names what takes the number";
  map = {};
  AddWaypoint(map, 0, 0, 1, {3, 2, 3});
  for (int i = 0; i < 3; ++i) AddWaypoint(map, 0, 0, 1);
  selection.waypoints.Append(1);
  selection.waypoints.Append(2);
  MenuDelete(editor);
  EXPECT_THAT(LinksOf(map, 0), ElementsAre(2))
      << "the lower first, which brings equal ones together";
}

}  // namespace
}  // namespace vesmora
