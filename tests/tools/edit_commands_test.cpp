#include "tools/edit_commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

#include "document/geometry.h"
#include "document/scenery_types.h"
#include "support/tool_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/numbered_objects.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using Strings = std::vector<std::string>;

struct EditBench : ToolBench {
  EditBench() { AddNumbered(map, 6); }
};

class EditCommandsTest : public testing::Test, protected EditBench {};

TEST_F(EditCommandsTest, EachSaysWhatItMust) {
  const Strings kept = {"RefreshInfoPanel", "RedrawMap"};
  const Strings deselected = {"SetPointer 0", "RefreshInfoPanel", "RedrawMap"};
  const Strings refused = {"Show Problem"};
  using Row = std::tuple<void (*)(const Editing&), Strings, Strings, MessageIcon>;
  for (const auto& [command, told, toldOfNone, icon] :
       {Row{MenuCopy, kept, kept, {}}, Row{MenuFront, deselected, deselected, {}},
        Row{MenuBack, deselected, deselected, {}},
        Row{MenuMirror, kept, refused, MessageIcon::kCritical},
        Row{MenuFlip, kept, refused, MessageIcon::kCritical},
        Row{MenuDelete, deselected, refused, MessageIcon::kInformation}}) {
    EditBench bench;
    command(bench.editing);
    EXPECT_EQ(bench.TakeEvents(), toldOfNone);
    const Message refusal{"You need select something at first.", "Problem", icon};
    EXPECT_THAT(bench.dialogs.messages, testing::Each(refusal));
    ListSlots(bench.selection, {1});
    command(bench.editing);
    EXPECT_EQ(bench.events, told);
  }
}

TEST_F(EditCommandsTest, MirrorAndFlipTurnOverAboutTheMiddleOfTheBox) {
  for (const bool isMirror : {true, false}) {
    ResetToNewMap(map);
    StoreAuthor(map);
    auto& corners = AddTriangle(map, {{{10, 20}, {60, 20}, {10, 90}}}).vertices;
    corners[0].u = corners[0].v = 0.75f;
    const SpawnPoint& spawn = AddSpawn(map, 12, 34, 0);
    SceneryObject& scenery = AddScenery(map, 21.5f, 43.5f, 3);
    scenery.rotation = 0.5f;
    scenery.scaleX = 2;
    const Collider& collider = AddCollider(map, 5, 6, 40);
    Waypoint& waypoint = AddWaypoint(map, -3, -4, 2);
    waypoint.botSettings = {1, 2, 3, 4, 5};
    ListVertices(selection, {{0, 0}, {0, 1}});
    ListSlots(selection, {0});
    selection.box = {-40, 200, 10, 110};             // not the bounds of what is listed
    state.tool.next.noTextureCorrection = isMirror;  // concerns moving only
    const auto untouched = std::tuple(map.normals[0], corners[2]);
    const DocumentState before = StateOf(map);
    isMirror ? MenuMirror(editing) : MenuFlip(editing);
    const auto expectAt = [isMirror](const auto& record, auto x, auto y, auto turnedX,
                                     auto turnedY) {
      EXPECT_EQ(record.x, isMirror ? turnedX : x);
      EXPECT_EQ(record.y, isMirror ? y : turnedY);
    };
    expectAt(corners[0], 10, 20, 150, 100);
    expectAt(corners[1], 60, 20, 100, 100);
    expectAt(spawn, 12 * 256, 34 * 256, 148 * 256, 86 * 256);
    expectAt(scenery, 21.5, 43.5, 138.5, 76.5);
    expectAt(collider, 5, 6, 155, 114);
    expectAt(waypoint, -3 * 256, -4 * 256, 163 * 256, 124 * 256);
    EXPECT_EQ(corners[0].u, isMirror ? 0.25f : 0.75f);
    EXPECT_EQ(corners[0].v, isMirror ? 0.75f : 0.25f);
    EXPECT_EQ(corners[1].u + corners[1].v, 1) << "also where there is no texture";
    EXPECT_EQ(scenery.scaleX, isMirror ? 2 : -2);
    EXPECT_EQ(scenery.scaleY, isMirror ? -1 : 1);
    EXPECT_FLOAT_EQ(scenery.rotation, kPi - 0.5f);
    EXPECT_EQ(waypoint.botSettings, (isMirror ? std::array<std::uint8_t, 5>{2, 1, 3, 4, 5}
                                              : std::array<std::uint8_t, 5>{1, 2, 4, 3, 5}));
    EXPECT_EQ(std::tuple(map.normals[0], corners[2]), untouched);
    EXPECT_TRUE(BeforeNewestStep() == before);
    EXPECT_EQ(Steps().back(), isMirror ? "Mirror" : "Flip");
    ClearLists(selection);
  }
}

TEST_F(EditCommandsTest, FrontKeepsTheOrderAndBackReversesIt) {
  using Row = std::tuple<void (*)(const Editing&), const char*, const char*, const char*>;
  for (const auto& [command, step, polygons, sceneries] :
       {Row{MenuFront, "Bring", "025134", "134025"}, Row{MenuBack, "Send", "431025", "520134"}}) {
    EditBench bench;
    ListVertices(bench.selection, {{1, 0}, {1, 2}, {3, 0}, {3, 1}, {3, 2}, {4, 1}});
    ListSlots(bench.selection, {0, 2, 5});
    command(bench.editing);
    EXPECT_THAT(NumbersIn(bench.map),
                ElementsAre(polygons, polygons, "012345", sceneries, "012345", "012345"));
    EXPECT_THAT(bench.Steps(), ElementsAre(step));
  }
}

TEST_F(EditCommandsTest, DeleteClosesTheGapsAndClearsTheVacatedSlot) {
  ListVertices(selection, {{0, 1}, {2, 0}, {2, 1}, {2, 2}, {4, 0}});
  ListSlots(selection, {1, 2, 4});
  Waypoint waypoint = map.waypoints[5];
  SceneryObject scenery = map.sceneries[5];
  map.spawns[5].ySign = 255;
  MenuDelete(editing);
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

/// What deleting has always done with waypoints, one by one: connections to each are
/// removed first, then each later waypoint is renumbered and moved down, once for each.
void DeleteOneByOne(MapDocument& map, std::span<const std::int16_t> listed) {
  const auto forEach = [&map](auto change) {
    for (int w = 0; w <= map.lastWaypoint; ++w) {
      Waypoint& waypoint = map.waypoints[static_cast<std::size_t>(w)];
      change(waypoint.connections.begin(), waypoint.connectionCount);
    }
  };
  for (const int slot : listed) {
    forEach([slot](auto links, std::int32_t& count) {
      for (int k = 0; k < count; ++k) {
        if (links[k] == slot + 1) std::shift_left(links + k, links + count--, 1);
      }
    });
  }
  int removed = 0;
  for (const int slot : listed) {
    for (int to = slot - removed; to < map.lastWaypoint; ++to) {
      Waypoint& from = map.waypoints[static_cast<std::size_t>(to + 1)];
      forEach([id = from.id, to](auto links, std::int32_t count) {
        std::replace(links, links + count, id, to + 1);
      });
      from.id = to + 1;
      map.waypoints[static_cast<std::size_t>(to)] = from;
    }
    ++removed;
    --map.lastWaypoint;
  }
}

TEST_F(EditCommandsTest, DeletingManyWaypointsIsDeletingThemOneByOne) {
  state.journal.folder.clear();  // thousands of snapshots are of no use here
  std::mt19937 random(3);
  const auto number = [&](int below) {
    return std::uniform_int_distribution(0, below - 1)(random);
  };
  const auto other = std::make_unique<MapDocument>();
  for (int i = 0; i < 2000; ++i) {
    map = {};
    const int count = 1 + number(7);
    for (std::int16_t slot = 0; slot < count; ++slot) {
      Waypoint& waypoint = AddWaypoint(map, 0, 0, slot);
      waypoint.connectionCount = number(8);
      // Some lead nowhere, many are equal.
      for (auto& id : waypoint.connections) id = number(count + 2);
      if (number(2) == 0) selection.waypoints.Add(slot);
    }
    if (selection.Empty()) continue;
    *other = map;
    DeleteOneByOne(*other, selection.waypoints.Items());
    MenuDelete(editing);
    ASSERT_EQ(map.lastWaypoint, other->lastWaypoint);
    for (int slot = 0; slot <= map.lastWaypoint; ++slot) {
      const auto at = static_cast<std::size_t>(slot);
      ASSERT_EQ(map.waypoints[at].path, other->waypoints[at].path) << i;
      ASSERT_EQ(map.waypoints[at].id, slot + 1) << i;
      ASSERT_EQ(LinksOf(map, slot), LinksOf(*other, slot)) << i;
    }
  }
  // By hand: of equal neighbours the second survives and names what takes the number.
  map = {};
  AddWaypoint(map, 0, 0, 1, {2, 2, 3, 2, 9});
  for (int i = 0; i < 2; ++i) AddWaypoint(map, 0, 0, 1);
  selection.waypoints.Add(1);
  MenuDelete(editing);
  EXPECT_THAT(LinksOf(map, 0), ElementsAre(2, 2, 9));
}

TEST_F(EditCommandsTest, AnAddToolTakesBackTheLastOfItsKind) {
  const std::array<std::size_t, 6> tables = {0, 0, 2, 3, 4, 5};
  for (std::size_t tool = 1; tool < tables.size(); ++tool) {
    ToolBench bench;
    AddNumbered(bench.map, 2);
    ChangeTool(bench.editing, static_cast<ToolMode>(tool));
    if (tool < 5) ListSlots(bench.selection, {0});  // whatever is selected
    for (const std::string left : {"0", "", ""}) {
      bench.TakeEvents();
      MenuDelete(bench.editing);
      Strings expected(6, "01");
      expected[tables[tool]] = left;
      if (tool == 1) expected[1] = left;
      EXPECT_EQ(NumbersIn(bench.map), expected);
      EXPECT_EQ(bench.events[bench.events.size() - 2], "RefreshInfoPanel");
      EXPECT_EQ(bench.events.back(), "RedrawMap");
      EXPECT_EQ(bench.map.toolIndex, static_cast<ToolMode>(tool));
    }
    EXPECT_EQ(bench.Steps(), Strings(3, "Delete"));
    EXPECT_EQ(bench.map.colliders[1].active, tool == 4 ? 0 : 1) << "the slot is cleared";
  }
}

TEST_F(EditCommandsTest, ATriangleIsTakenBackCornerByCorner) {
  ChangeTool(editing, ToolMode::kAddPolygon);
  Click(200, 200);
  Click(240, 200);
  Move(250, 260);
  MenuDelete(editing);
  const auto& corners = map.polygons[6].vertices;
  const auto place = [&corners](std::size_t i) { return ScreenPoint{corners[i].x, corners[i].y}; };
  EXPECT_EQ(place(1), (ScreenPoint{250, 260})) << "now follows the pointer";
  EXPECT_EQ(place(2), (ScreenPoint{200, 200}));
  EXPECT_EQ(std::tuple(corners[1].u, corners[1].v), std::tuple(0, 0));
  Click(280, 210);
  EXPECT_EQ(std::tuple(place(1), state.tool.value), std::tuple(ScreenPoint{280, 210}, 2));
  for (int i = 0; i < 2; ++i) MenuDelete(editing);
  EXPECT_EQ(std::tuple(state.tool.value, map.lastPolygon), std::tuple(0, 5));
  EXPECT_FALSE(state.gesture.InProgress());
}

TEST_F(EditCommandsTest, WhatIsHalfDoneIsTakenBackFirst) {
  ChangeTool(editing, ToolMode::kAddScenery);
  state.tool.value = kLianaType;
  Click(200, 200);
  MenuDelete(editing);
  EXPECT_EQ(std::tuple(map.lastScenery, state.tool.value), std::tuple(5, kLianaType));
  EXPECT_FALSE(state.gesture.InProgress());
  ChangeTool(editing, ToolMode::kAddWaypoint);
  Click(40, 50);
  MenuDelete(editing);
  EXPECT_EQ(std::tuple(map.lastWaypoint, selection.connectionAnchor), std::tuple(5, kNoIndex));
  Move(40, 50);
  MenuDelete(editing);
  EXPECT_EQ(NumbersIn(map)[5], "01345") << "the hovered one";
}

}  // namespace
}  // namespace vesmora
