#include <gmock/gmock.h>

#include <tuple>

#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/add_polygon.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using Links = std::vector<std::vector<std::int32_t>>;

/// Six objects of each kind. Each carries its own number where no command looks.
struct DeleteBench : ToolBench {
  DeleteBench() {
    for (std::uint8_t i = 0; i < 6; ++i) {
      const float x = 20.0f * i;
      Polygon& polygon = AddTriangle(map, {{{x, 0}, {x + 10, 0}, {x, 10}}});
      for (PolygonVertex& vertex : polygon.vertices) vertex.color = {i, i, i, 255};
      map.normals[i].edges.fill({1, 1, static_cast<float>(i)});
      AddSpawn(map, x, 20, 2).carried = {i, i};
      map.spawns[i].ySign = 255;
      AddScenery(map, x, 30, 3).level = i;
      AddCollider(map, x, 40, 8).carried = {i, i};
      AddWaypoint(map, x, 50, 1).carried = {i, i, i};
    }
    ClearHistory(state.journal);
    TakeEvents();
  }

  template <typename Table, typename Number>
  std::string Numbers(const Table& table, int last, Number number) const {
    std::string text;
    for (int i = 0; i <= last; ++i) {
      text += std::to_string(int{number(table[static_cast<std::size_t>(i)])});
    }
    return text;
  }
  /// The numbers of the objects that are left: polygons, normals, spawns, sceneries,
  /// colliders and waypoints.
  std::vector<std::string> Left() const {
    const auto carried = [](const auto& record) { return record.carried[0]; };
    return {Numbers(map.polygons, map.lastPolygon,
                    [](const Polygon& polygon) { return polygon.vertices[1].color.red; }),
            Numbers(map.normals, map.lastPolygon,
                    [](const PolygonNormals& normals) {
                      return static_cast<std::uint8_t>(normals.edges[1].z);
                    }),
            Numbers(map.spawns, map.lastSpawn, carried),
            Numbers(map.sceneries, map.lastScenery,
                    [](const SceneryObject& scenery) { return scenery.level; }),
            Numbers(map.colliders, map.lastCollider, carried),
            Numbers(map.waypoints, map.lastWaypoint, carried)};
  }
  void List(const std::vector<std::uint8_t>& slots) {
    for (const std::uint8_t slot : slots) {
      selection.spawns.Add(slot);
      selection.sceneries.Add(slot);
      selection.colliders.Add(slot);
      selection.waypoints.Add(slot);
    }
  }
};

class DeleteTest : public testing::Test, protected DeleteBench {};

/// Only what deleting clears is cleared of a slot; the rest is what lay there, here `number`.
void ExpectVacated(const MapDocument& map, std::size_t slot, std::uint8_t number) {
  const SpawnPoint& spawn = map.spawns[slot];
  EXPECT_EQ(spawn, (SpawnPoint{0, 0, 0, 0, 0, {number, number}}));
  const SceneryObject& scenery = map.sceneries[slot];
  EXPECT_EQ(std::tuple(scenery.active, scenery.type, scenery.x, scenery.y, scenery.scaleX,
                       scenery.scaleY),
            std::tuple(0, 0, 0, 0, 0, 0));
  EXPECT_EQ(std::tuple(scenery.width, scenery.level), std::tuple(map.sceneries[0].width, number));
  const Collider& collider = map.colliders[slot];
  EXPECT_EQ(std::tuple(collider.active, collider.x, collider.y, collider.radius),
            std::tuple(0, 0, 0, 0));
  EXPECT_EQ(collider.carried[0], number);
}

TEST_F(DeleteTest, WithNothingSelectedTheStepStays) {
  const DocumentState before = StateOf(map);
  MenuDelete(editing);
  EXPECT_THAT(dialogs.messages, ElementsAre(Message{"You need select something at first.",
                                                    "Problem", MessageIcon::kInformation}));
  EXPECT_THAT(events, ElementsAre("Show Problem")) << "neither refresh nor redraw";
  EXPECT_THAT(Steps(), ElementsAre("Delete"));
  EXPECT_EQ(StateOf(map), before);
}

TEST_F(DeleteTest, RemovesWhatIsListedAndClosesTheGaps) {
  struct Row {
    std::vector<VertexReference> vertices;
    std::vector<std::uint8_t> slots;
    std::string polygonsLeft, left;
  };
  for (const Row& row :
       {Row{{{0, 1}}, {0}, "12345", "12345"}, Row{{{5, 0}}, {5}, "01234", "01234"},
        Row{{{1, 0}, {1, 2}, {2, 0}, {2, 1}, {2, 2}, {4, 1}}, {1, 2, 4}, "035", "035"},
        Row{{{0, 0}, {5, 2}}, {0, 5}, "1234", "1234"}, Row{{}, {2, 3}, "012345", "0145"},
        Row{{{3, 2}}, {}, "01245", "012345"},
        Row{{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}}, {0, 1, 2, 3, 4, 5}, "", ""}}) {
    DeleteBench bench;
    for (const VertexReference vertex : row.vertices) bench.selection.vertices.Add(vertex);
    bench.List(row.slots);
    bench.selection.box = {0, 10, 0, 10};
    const Bytes before = ImageOf(bench.map);
    MenuDelete(bench.editing);
    const std::string& rest = row.left;
    EXPECT_THAT(bench.Left(),
                ElementsAre(row.polygonsLeft, row.polygonsLeft, rest, rest, rest, rest));
    EXPECT_THAT(bench.events, ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
    EXPECT_EQ(bench.Listed(), "");
    EXPECT_EQ(bench.selection.box, SelectionBox{});
    EXPECT_THAT(bench.Steps(), ElementsAre("Delete"));
    EXPECT_EQ(std::get<0>(bench.BeforeNewestStep()).size(), before.size());
    EXPECT_THAT(std::get<1>(bench.BeforeNewestStep()), testing::Each(5));
    for (const PolygonVertex& vertex : bench.map.polygons[row.polygonsLeft.size() % 6].vertices) {
      const bool vacated = !row.vertices.empty();
      EXPECT_EQ(vertex.color.alpha, vacated ? 0 : 255) << row.polygonsLeft;
    }
    for (std::size_t i = 0; i < row.polygonsLeft.size(); ++i) {
      EXPECT_EQ(bench.map.polygons[i].vertices[0].color.alpha, 255);
    }
    // The record that lay on top stays there but for the cleared fields.
    if (!row.slots.empty()) ExpectVacated(bench.map, row.left.size(), 5);
  }
}

TEST_F(DeleteTest, ConnectionsKeepLeadingToTheSameWaypoints) {
  struct Row {
    const char* name;
    Links links;  // of the first waypoints, ids
    std::vector<std::int16_t> deleted;
    Links left;
  };
  for (const Row& row :
       {Row{"renumbered", {{2, 6}, {4}, {}, {1}, {6}, {5, 3}}, {1}, {{5}, {}, {1}, {5}, {4, 2}}},
        Row{"several", {{2, 3, 4, 5, 6}, {1}, {6, 4}, {3}, {}, {3}}, {1, 3, 4}, {{2, 3}, {3}, {2}}},
        Row{"first and last", {{}, {1, 6, 3}, {6, 2}, {}, {}, {}}, {0, 5}, {{2}, {1}, {}, {}}},
        // Of equal neighbours the second one survives and names what takes the number.
        Row{"two equal", {{3, 3}, {2, 3, 3, 5}}, {2}, {{3}, {2, 3, 4}, {}, {}, {}}},
        Row{"three equal", {{3, 3, 3}, {3, 3, 4}}, {2}, {{3}, {3, 3}, {}, {}, {}}},
        Row{"equal, apart", {{3, 4, 3, 5, 3}}, {2}, {{3, 4}, {}, {}, {}, {}}},
        Row{"equal after the first unlinking", {{3, 4, 3}}, {2, 3}, {{}, {}, {}, {}}},
        Row{"itself", {{1, 2}, {2}}, {0}, {{1}, {}, {}, {}, {}}},
        Row{"nobody", {{0, -7, 900, 6}}, {1}, {{0, -7, 900, 5}, {}, {}, {}, {}}}}) {
    DeleteBench bench;
    MapDocument& document = bench.map;
    for (std::size_t i = 0; i < row.links.size(); ++i) {
      document.waypoints[i].connectionCount = static_cast<std::int32_t>(row.links[i].size());
      std::ranges::copy(row.links[i], document.waypoints[i].connections.begin());
    }
    for (const std::int16_t slot : row.deleted) bench.selection.waypoints.Add(slot);
    MenuDelete(bench.editing);
    Links left;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(document.lastWaypoint); ++i) {
      const Waypoint& waypoint = document.waypoints[i];
      EXPECT_EQ(waypoint.id, static_cast<std::int32_t>(i) + 1) << row.name;
      left.emplace_back(waypoint.connections.begin(),
                        waypoint.connections.begin() + waypoint.connectionCount);
    }
    EXPECT_EQ(left, row.left) << row.name;
    const Waypoint& top = document.waypoints[left.size()];
    EXPECT_EQ(std::tuple(top.active, top.path, top.x, top.y, top.id), std::tuple(0, 0, 0, 0, 0));
    EXPECT_EQ(top.carried[0], 5);
  }
}

TEST_F(DeleteTest, DamagedConnectionCountsAreHarmless) {
  for (const auto& [count, left] : {std::pair(25, 19), {21, 19}, {20, 19}, {0, 0}, {-3, -3}}) {
    DeleteBench bench;
    Waypoint& waypoint = bench.map.waypoints[0];
    for (std::int32_t i = 0; i < 20; ++i) waypoint.connections[static_cast<std::size_t>(i)] = 50;
    waypoint.connections[19] = 3;
    waypoint.connectionCount = count;
    bench.selection.waypoints.Add(2);
    MenuDelete(bench.editing);
    EXPECT_EQ(waypoint.connectionCount, left);
  }
}

TEST_F(DeleteTest, AnAddToolTakesBackTheLastOfItsKind) {
  for (const auto& [tool, table] : {std::pair(ToolMode::kAddPolygon, 0u),
                                    {ToolMode::kAddSpawn, 2u},
                                    {ToolMode::kAddScenery, 3u},
                                    {ToolMode::kAddCollider, 4u},
                                    {ToolMode::kAddWaypoint, 5u}}) {
    DeleteBench bench;
    ChangeTool(bench.editing, tool);
    if (tool != ToolMode::kAddWaypoint) {
      bench.List({0, 1});  // whatever is selected
      bench.selection.vertices.Add({0, 0});
    }
    for (int i = 5; i >= -2; --i) {
      bench.TakeEvents();
      MenuDelete(bench.editing);
      std::vector<std::string> left(6, "012345");
      left[table] = left[table].substr(0, static_cast<std::size_t>(std::max(i, 0)));
      if (table == 0) left[1] = left[0];
      EXPECT_EQ(bench.Left(), left);
      EXPECT_THAT(bench.events, testing::Not(testing::Contains("Show Problem")));
      EXPECT_EQ(bench.events.back(), "RedrawMap");
      EXPECT_EQ(bench.events[bench.events.size() - 2], "RefreshInfoPanel");
      EXPECT_EQ(bench.map.toolIndex, tool);
    }
    EXPECT_THAT(bench.Steps(), testing::AllOf(testing::SizeIs(8), testing::Each("Delete")))
        << "an empty table, too, takes a step";
    const MapDocument& document = bench.map;
    const SpawnPoint& spawn = document.spawns[5];
    EXPECT_EQ(spawn.active + spawn.team + spawn.ySign + spawn.x,
              table == 2 ? 0 : 1 + 2 + 25600 + 255);
    const SceneryObject& scenery = document.sceneries[5];
    EXPECT_EQ(scenery.active + scenery.type + scenery.scaleY, table == 3 ? 0 : 1 + 3 + 1);
    EXPECT_EQ(document.colliders[5].active + document.colliders[5].radius, table == 4 ? 0 : 1 + 8);
    EXPECT_EQ(document.waypoints[5].active + document.waypoints[5].id, table == 5 ? 0 : 1 + 6);
    EXPECT_EQ(document.polygons[5].vertices[2].color.alpha, table == 0 ? 0 : 255);
  }
}

TEST_F(DeleteTest, ATriangleIsTakenBackCornerByCorner) {
  ChangeTool(editing, ToolMode::kAddPolygon);
  Click(200, 200);
  Click(240, 200);
  Move(250, 260);
  MenuDelete(editing);
  const auto& corners = map.polygons[6].vertices;
  const auto place = [&corners](std::size_t i) { return ScreenPoint{corners[i].x, corners[i].y}; };
  EXPECT_EQ(state.tool.value, 1);
  EXPECT_EQ(place(0), (ScreenPoint{200, 200}));
  EXPECT_EQ(place(1), (ScreenPoint{250, 260})) << "now follows the pointer";
  EXPECT_EQ(place(2), (ScreenPoint{200, 200}));
  EXPECT_EQ(std::tuple(corners[1].u, corners[1].v), std::tuple(0, 0));
  EXPECT_EQ(map.lastPolygon, 6);
  Click(280, 210);
  EXPECT_EQ(place(1), (ScreenPoint{280, 210})) << "placed again";
  EXPECT_EQ(corners[1].u, 280.0f / 160);
  MenuDelete(editing);
  MenuDelete(editing);
  EXPECT_EQ(std::tuple(state.tool.value, map.lastPolygon), std::tuple(0, 5));
  EXPECT_FALSE(state.gesture.InProgress());
  EXPECT_EQ(Left()[0], "012345");
  Click(200, 200);
  Click(240, 200);
  Click(200, 240);
  EXPECT_EQ(map.lastPolygon, 6) << "a new one is begun";
}

TEST_F(DeleteTest, APendingDirectionGoesWithItsScenery) {
  ChangeTool(editing, ToolMode::kAddScenery);
  state.tool.value = 5;
  Click(200, 200);
  EXPECT_EQ(state.tool.value, kNoToolValue);
  MenuDelete(editing);
  EXPECT_EQ(map.lastScenery, 5);
  EXPECT_NE(state.tool.value, kNoToolValue);
  const DocumentState deleted = StateOf(map);
  CancelGesture(editing);
  EXPECT_EQ(StateOf(map), deleted) << "nothing left to cancel";
  Click(300, 300);
  EXPECT_EQ(map.lastScenery, 6);
  EXPECT_EQ(map.sceneries[5].level, 5) << "the one before keeps its direction";
}

TEST_F(DeleteTest, InAddWaypointTheAnchorGoesFirstThenTheHoveredOne) {
  ChangeTool(editing, ToolMode::kAddWaypoint);
  AddWaypoint(map, 300, 300, 1, {2, 3});
  Click(40, 50);
  ASSERT_EQ(selection.connectionAnchor, 2);
  MenuDelete(editing);
  EXPECT_EQ(selection.connectionAnchor, kNoIndex);
  EXPECT_EQ(map.lastWaypoint, 6);
  Move(40, 50);
  MenuDelete(editing);
  EXPECT_EQ(Left()[5], "013450") << "the hovered one";
  EXPECT_THAT(std::span(map.waypoints[5].connections).first(1), ElementsAre(2));
  EXPECT_EQ(map.waypoints[5].connectionCount, 1);
  EXPECT_EQ(map.toolIndex, ToolMode::kAddWaypoint);
  EXPECT_EQ(Listed(), "");
  Move(-200, -200);
  MenuDelete(editing);
  EXPECT_EQ(Left()[5], "01345") << "the last one";
}

}  // namespace
}  // namespace vesmora
