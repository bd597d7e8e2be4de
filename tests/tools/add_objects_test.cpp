#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>
#include <tuple>

#include "document/geometry.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AddObjectsTest : public testing::Test, protected ToolBench {};

TEST_F(AddObjectsTest, AFullTableRefusesAndNothingChanges) {
  struct Row {
    ToolMode tool;
    std::int16_t MapDocument::*last;
    int capacity;
    const char* refusal;
    const char* step;
  };
  for (const Row& row : {Row{ToolMode::kAddPolygon, &MapDocument::lastPolygon, 400,
                             "Max number of polygons reached.", "Polygon"},
                         Row{ToolMode::kAddSpawn, &MapDocument::lastSpawn, 30,
                             "Max number of spawns reached.", "Spwan"},
                         Row{ToolMode::kAddScenery, &MapDocument::lastScenery, 255,
                             "Max number of sceneries reached.", "Scenery"},
                         Row{ToolMode::kAddCollider, &MapDocument::lastCollider, 128,
                             "Max number of colliders reached.", "Collider"},
                         Row{ToolMode::kAddWaypoint, &MapDocument::lastWaypoint, 500,
                             "Max number of waypoints reached.", "Waypoint"}}) {
    ChangeTool(editing, row.tool);
    std::int16_t& last = map.*row.last;
    last = static_cast<std::int16_t>(row.capacity - 2);
    ClearHistory(state.journal);
    TakeEvents();
    Press(333, 222);
    EXPECT_EQ(last, row.capacity - 1) << row.step;
    EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap"));
    EXPECT_THAT(Steps(), ElementsAre(row.step));
    Release();
    EXPECT_THAT(TakeEvents(), testing::SizeIs(2)) << "an Add tool hears no release";
    EndConstruction(state);
    state.gesture.End();

    last = static_cast<std::int16_t>(row.capacity - 1);
    const DocumentState before = StateOf(map);
    Click(300, 200);
    ExpectRefusal(row.refusal);
    EXPECT_EQ(StateOf(map), before) << row.step;
    EXPECT_THAT(Steps(), ElementsAre(row.step));
    EXPECT_FALSE(state.gesture.InProgress());
    last = -1;
  }
}

TEST_F(AddObjectsTest, SpawnsAndCollidersLandWhereTheyArePlaced) {
  struct Row {
    std::int16_t grid;
    bool ctrl;
    float x, y;
    std::int32_t spawnX, spawnY;
    float colliderX, colliderY;
  };
  for (const Row& row : {Row{0, false, 10.3f, -4.5f, 2637, -1152, 10.299988f, -4.5f},
                         Row{25, false, 37.5f, 12.5f, 50 * 256, 0, 50, 0},
                         Row{25, true, 37.5f, 12.5f, 9600, 3200, 37.5f, 12.5f}}) {
    map = {};
    state.view.gridSize = row.grid;
    state.ctrlDown = row.ctrl;
    ChangeTool(editing, ToolMode::kAddSpawn);
    state.tool.value = 2;
    Press(row.x, row.y);
    const SpawnPoint spawn{
        .active = 256, .x = row.spawnX, .y = row.spawnY, .ySign = 0, .team = 2, .carried = {}};
    EXPECT_EQ(map.spawns[0], spawn);
    EXPECT_EQ(map.spawns[1], spawn) << "the preview of the next";
    EXPECT_EQ(map.lastSpawn, 0);
    ChangeTool(editing, ToolMode::kAddCollider);
    EXPECT_EQ(state.tool.value, 12);
    state.tool.value = 7;
    Press(row.x, row.y);
    const Collider collider{.active = 1,
                            .carried = {},
                            .authorChar = map.colliders[0].authorChar,
                            .x = row.colliderX,
                            .y = row.colliderY,
                            .radius = 7};
    EXPECT_EQ(map.colliders[0], collider);
    EXPECT_EQ(map.colliders[1].x, row.colliderX);
    EXPECT_EQ(map.lastCollider, 0);
  }
}

TEST_F(AddObjectsTest, ThePreviewIsTheNextSlotAndFollowsThePointer) {
  state.view.gridSize = 25;
  const auto follow = [this](ToolMode tool, auto& table, std::int16_t& last, float snapped) {
    const auto used = [&table] {
      return std::ranges::count_if(table, [](const auto& record) { return record.active != 0; });
    };
    const int top = static_cast<int>(table.size()) - 1;
    ChangeTool(editing, tool);
    for (const int before : {-1, top - 3, top - 2, top - 1, top}) {
      table = {};
      last = static_cast<std::int16_t>(before);
      Move(37.5f, 60);
      EXPECT_EQ(last, before);
      EXPECT_EQ(used(), before < top ? 1 : 0) << before;
      if (before == top) continue;
      EXPECT_EQ(table[static_cast<std::size_t>(before + 1)].x, snapped);
      Press(37.5f, 60);
      // The very last slot gets its preview from a move only, as each of a scenery's does.
      const bool hasPreview = before + 2 < top && tool != ToolMode::kAddScenery;
      EXPECT_EQ(used(), hasPreview ? 2 : 1) << before;
    }
  };
  follow(ToolMode::kAddSpawn, map.spawns, map.lastSpawn, 50 * 256);
  follow(ToolMode::kAddCollider, map.colliders, map.lastCollider, 50);
  follow(ToolMode::kAddScenery, map.sceneries, map.lastScenery, 50.5f);
}

TEST_F(AddObjectsTest, SceneriesTakeTypeAndVisibilityFromThePanel) {
  using Row = std::tuple<std::uint8_t, std::string, std::int16_t, float, float, std::uint8_t>;
  for (const auto& [type, visibility, grid, x, stored, level] :
       {Row(1, "100%", 0, 0, 0.5f, 255), Row(2, "75%", 0, 37.25f, 37.75f, 191),
        Row(21, "50%", 25, 37.5f, 50.5f, 128), Row(19, "", 0, 0, 0.5f, 255)}) {
    map = {};
    SceneryObject expected = AddScenery(map, stored, 0.5f, type);
    expected.level = level;
    std::memset(&map.sceneries[0], 0x77, sizeof(SceneryObject));  // what lay there
    map.lastScenery = -1;
    ChangeTool(editing, ToolMode::kAddScenery);
    state.tool.value = type;
    state.tool.next.visibility = visibility;
    state.view.gridSize = grid;
    Press(x, 0);
    EXPECT_EQ(map.sceneries[0], expected);
    EXPECT_EQ(state.tool.value, type);
  }
}

TEST_F(AddObjectsTest, ALianaGetsItsDirectionByASecondClick) {
  using Row = std::tuple<ScreenPoint, bool, double>;
  for (const auto& [mouse, shift, rotation] :
       {Row({40.5f, 0.5f}, false, 0), Row({10.5f, -29.5f}, false, 90),
        Row({-19.5f, 0.5f}, false, 180), Row({10.5f, 30.5f}, true, -90),
        Row({40.5f, -19.5f}, true, 45), Row({10, 0}, false, 135)}) {  // from the stored place
    ToolBench bench;
    bench.map.lastScenery = 253;
    ChangeTool(bench.editing, ToolMode::kAddScenery);
    bench.state.tool.value = 5;
    bench.state.tool.next.visibility = "50%";
    bench.Click(10, 0);
    const SceneryObject& liana = bench.map.sceneries[254];
    EXPECT_EQ(liana.rotation, -kPi / 2);
    EXPECT_EQ(bench.state.tool.value, kNoToolValue);
    bench.state.shiftDown = shift;
    bench.Click(mouse.x, mouse.y);
    EXPECT_NEAR(liana.rotation, rotation * M_PI / 180, 1e-6) << mouse.x;
    EXPECT_EQ(bench.map.lastScenery, 254);
    EXPECT_THAT(bench.dialogs.messages, IsEmpty());
    EXPECT_THAT(bench.Steps(), ElementsAre("Scenery"));
    EXPECT_EQ(bench.state.tool.value, 5);
    EXPECT_EQ(bench.state.tool.next.visibility, "50%");
    EXPECT_FALSE(bench.state.gesture.InProgress());
    bench.Click(0, 0);
    bench.ExpectRefusal("Max number of sceneries reached.");
  }
}

TEST_F(AddObjectsTest, ALianaWithoutASecondClickHangsDownOrIsTakenBack) {
  ChangeTool(editing, ToolMode::kAddScenery);
  state.tool.value = 5;
  Move(10, 0);
  const DocumentState before = StateOf(map);
  Press(10, 0);
  Move(40, -30);
  CancelGesture(editing);
  EXPECT_EQ(StateOf(map), before);
  EXPECT_THAT(Steps(), IsEmpty());
  state.tool.value = 5;
  Press(10, 0);
  Move(40, -30);  // on the way to the tools
  ChangeTool(editing, ToolMode::kEdit);
  EXPECT_EQ(map.lastScenery, 0);
  EXPECT_EQ(map.sceneries[0].rotation, -kPi / 2);
}

TEST_F(AddObjectsTest, ALianaThatASnapshotDroppedTurnsNoOtherScenery) {
  for (int i = 0; i < 254; ++i) AddScenery(map, 500, 500, 1);
  ChangeTool(editing, ToolMode::kAddScenery);
  state.tool.value = 5;
  Press(10, 0);
  TakeUndoSnapshot(editing, "Help");  // never keeps the last slot
  Click(40, -30);
  ChangeTool(editing, ToolMode::kEdit);
  EXPECT_EQ(map.sceneries[253].rotation, 0);
}

class AddWaypointTest : public AddObjectsTest {
 protected:
  AddWaypointTest() {
    ChangeTool(editing, ToolMode::kAddWaypoint);
    TakeEvents();
  }

  std::vector<std::int32_t> ConnectionsOf(std::size_t slot) const {
    const Waypoint& waypoint = map.waypoints[slot];
    return {waypoint.connections.begin(), waypoint.connections.begin() + waypoint.connectionCount};
  }
};

TEST_F(AddWaypointTest, CreatesExactlyUnderThePointer) {
  state.view.gridSize = 25;
  state.tool.value = 2;
  state.tool.next.botSettings = {1, 0, 1, 0, 1};
  map.waypoints[0].connections[0] = 9;  // what lay there
  map.waypoints[0].connectionCount = 3;
  Press(37.25f, -12.5f);
  EXPECT_EQ(map.waypoints[0], (Waypoint{.active = 1,
                                        .id = 1,
                                        .x = 9536,
                                        .y = -3200,
                                        .botSettings = {1, 0, 1, 0, 1},
                                        .carried = {},
                                        .path = 2,
                                        .connectionCount = 0,
                                        .connections = {9}}));
  EXPECT_EQ(map.lastWaypoint, 0);
  EXPECT_THAT(Steps(), ElementsAre("Waypoint"));
  EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap"));
}

TEST_F(AddWaypointTest, CtrlAndShiftDrawChains) {
  state.ctrlDown = true;
  Click(0, 0);
  EXPECT_THAT(ConnectionsOf(0), IsEmpty()) << "there is none before the first";
  Click(100, 0);
  state.ctrlDown = false;
  state.shiftDown = true;
  Click(200, 0);
  state.shiftDown = false;
  Click(300, 0);
  EXPECT_THAT(ConnectionsOf(0), ElementsAre(2));
  EXPECT_THAT(ConnectionsOf(1), ElementsAre(3));
  EXPECT_THAT(ConnectionsOf(2), IsEmpty());
  state.shiftDown = true;
  for (const auto& [count, after] : {std::pair(19, 20), {20, 20}, {21, 21}, {-3, 1}}) {
    const auto last = static_cast<std::size_t>(map.lastWaypoint);
    map.waypoints[last].connectionCount = count;
    Click(static_cast<float>(last) * 50, 100);
    EXPECT_EQ(map.lastWaypoint, static_cast<int>(last) + 1);
    EXPECT_EQ(map.waypoints[last].connectionCount, after);
    if (after != count) {
      EXPECT_EQ(map.waypoints[last].connections[static_cast<std::size_t>(after - 1)], last + 2);
    }
  }
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(AddWaypointTest, TwoClicksConnectOneWay) {
  for (int i = 0; i < 3; ++i) AddWaypoint(map, 100.0f * static_cast<float>(i), 0, 1);
  AddWaypoint(map, 300, 0, 2);
  const DocumentState before = StateOf(map);
  Click(104, 4);
  EXPECT_EQ(selection.connectionAnchor, 1);
  EXPECT_THAT(Steps(), ElementsAre("Waypoint"));
  EXPECT_EQ(BeforeNewestStep(), before);
  Click(200, 0);
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  EXPECT_THAT(ConnectionsOf(1), ElementsAre(3));
  EXPECT_THAT(ConnectionsOf(2), IsEmpty());
  for (const float target : {200.0f, 100.0f}) {  // again, and to itself
    Click(100, 0);
    Click(target, 0);
  }
  EXPECT_THAT(ConnectionsOf(1), ElementsAre(3, 3, 2));
  EXPECT_THAT(Steps(), ElementsAre("Waypoint", "Waypoint", "Waypoint"));

  Click(0, 0);
  Click(50, 50);  // beside all of them: cancels
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  Click(0, 0);
  CancelGesture(editing);
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  EXPECT_EQ(map.lastWaypoint, 3);
  EXPECT_THAT(ConnectionsOf(0), IsEmpty());
  EXPECT_EQ(Steps().size(), 5U) << "the steps of the two stay";

  map.waypoints[0].connectionCount = 20;
  Click(0, 0);
  ExpectRefusal("Selected waypoint have max number of connections.");
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  EXPECT_EQ(Steps().size(), 5U);
  Click(100, 0);
  map.waypoints[1].connectionCount = 20;  // filled in the meantime
  Click(200, 0);
  EXPECT_EQ(map.waypoints[1].connectionCount, 20);
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  map.waypoints[2].connectionCount = -5;
  Click(200, 0);
  Click(0, 0);
  EXPECT_THAT(ConnectionsOf(2), ElementsAre(1)) << "a damaged count counts as none";
}

TEST_F(AddWaypointTest, OnlyWhatIsShownCanBeConnected) {
  AddWaypoint(map, 0, 0, 1);
  AddWaypoint(map, 3, 0, 2);
  const auto hoveredAt = [this](float x) {
    Move(x, 0);
    return Listed();
  };
  EXPECT_EQ(hoveredAt(5), "w0") << "the first in the table, not the nearest";
  EXPECT_EQ(hoveredAt(5.25f), "w1");
  EXPECT_EQ(hoveredAt(8.25f), "");
  state.show.pathFilter = 2;
  EXPECT_EQ(hoveredAt(0), "w1");
  state.show.pathFilter = 1;
  EXPECT_EQ(hoveredAt(5.25f), "");
  state.show.pathFilter = 0;
  EXPECT_EQ(hoveredAt(0), "w0");
  ForgetHover(editing);
  EXPECT_EQ(Listed(), "");
  state.show.showFlags[4] = 0;
  Click(0, 0);
  EXPECT_EQ(map.lastWaypoint, 2) << "nothing there to be seen, so one is made";
}

}  // namespace
}  // namespace vesmora
