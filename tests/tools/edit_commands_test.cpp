// What commands of the Edit menu do to the records.
#include "tools/edit_commands.h"

#include <gmock/gmock.h>

#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class EditCommandsTest : public testing::Test, protected Bench {
 protected:
  EditCommandsTest() { AddNumbered(map, 6); }
};

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
