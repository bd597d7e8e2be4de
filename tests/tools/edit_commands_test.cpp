// The Edit menu: what its commands say and do, the clipboard among them.
#include "tools/edit_commands.h"

#include <gmock/gmock.h>

#include <cmath>

#include "document/geometry.h"
#include "document/scenery_types.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"
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
  const Strings shown = {"RefreshInfoPanel", "RedrawMap"};
  const Strings refused = {"Show Problem"};
  using Row = std::tuple<void (*)(Editing&), bool, Strings, MessageIcon>;
  for (const auto& [command, deselects, toldOfNone, icon] :
       {Row{MenuCopy, false, shown, {}}, Row{MenuSelectAll, false, shown, {}},
        Row{MenuFront, true, shown, {}}, Row{MenuBack, true, shown, {}},
        Row{MenuMirror, false, refused, MessageIcon::kCritical},
        Row{MenuFlip, false, refused, MessageIcon::kCritical},
        Row{MenuDelete, true, refused, MessageIcon::kInformation}}) {
    EditBench bench;
    bench.Press(-300, -200);
    command(bench.editor);
    EXPECT_EQ(bench.TakeEvents(), toldOfNone);
    EXPECT_EQ(bench.editor.activity.Is(ActivityKind::kBand), toldOfNone == refused)
        << "a refusal ends nothing";
    const Message refusal{"You need select something at first.", "Problem", icon};
    EXPECT_THAT(bench.dialogs.messages, testing::Each(refusal));
    ListSlots(bench.selection, {1});
    command(bench.editor);
    EXPECT_EQ(bench.events, shown);
    EXPECT_EQ(bench.selection.Empty(), deselects);
  }
}

TEST_F(EditCommandsTest, SelectAllTakesWhatIsShownAndEscapeLetsItGo) {
  ToolBench bench;
  AddNumbered(bench.map, 2);
  bench.map.colliders[0].x = NAN;  // in no box
  bench.map.waypoints[1].path = 2;
  bench.editor.show = {.showFlags = {1, 0, 1, 1, 1, 0, 0}, .pathFilter = 2};
  bench.selection.spawns.Append(0);
  bench.selection.moveSnapshotTaken = true;
  bench.Press(-300, -200);
  bench.Move(-290, -190);
  MenuSelectAll(bench.editor);
  bench.Release();  // of the band, which is no more
  EXPECT_EQ(bench.Listed(), "v0.0 v0.1 v0.2 v1.0 v1.1 v1.2 o0 o1 c0 c1 w1");
  EXPECT_EQ(bench.selection.box, (SelectionBox{0, 30, 0, 50}));
  EXPECT_FALSE(bench.selection.moveSnapshotTaken);
  bench.Move(5, 5);
  for (const Strings& asked : {Strings{"RefreshInfoPanel", "RedrawMap"}, Strings{}}) {
    bench.TakeEvents();
    CancelGesture(bench.editor);
    EXPECT_EQ(bench.events, asked);
    EXPECT_TRUE(bench.selection.Empty() && bench.selection.box == SelectionBox{});
    EXPECT_EQ(bench.Pointer(), PointerShape::kDefault);
  }
  EXPECT_TRUE(bench.Steps().empty());
}

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

TEST_F(EditCommandsTest, FrontKeepsTheOrderAndBackReversesIt) {
  using Row = std::tuple<void (*)(Editing&), const char*, const char*, const char*>;
  for (const auto& [command, step, polygons, sceneries] :
       {Row{MenuFront, "Bring", "025134", "134025"}, Row{MenuBack, "Send", "431025", "520134"}}) {
    EditBench bench;
    ListVertices(bench.selection, {{1, 0}, {1, 2}, {3, 0}, {3, 1}, {3, 2}, {4, 1}});
    ListSlots(bench.selection, {0, 2, 5});
    command(bench.editor);
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

TEST_F(EditCommandsTest, AnAddToolTakesBackTheLastOfItsKind) {
  const std::array<std::size_t, 6> tables = {0, 0, 2, 3, 4, 5};
  for (std::size_t tool = 1; tool < tables.size(); ++tool) {
    ToolBench bench;
    AddNumbered(bench.map, 2);
    ChangeTool(bench.editor, static_cast<ToolMode>(tool));
    if (tool < 5) ListSlots(bench.selection, {0});  // whatever is selected
    for (const std::string left : {"0", "", ""}) {
      MenuDelete(bench.editor);
      Strings expected(6, "01");
      expected[tables[tool]] = left;
      if (tool == 1) expected[1] = left;
      EXPECT_EQ(NumbersIn(bench.map), expected);
      EXPECT_EQ(bench.map.toolIndex, static_cast<ToolMode>(tool));
    }
    EXPECT_EQ(bench.Steps(), Strings(3, "Delete"));
    EXPECT_EQ(bench.map.colliders[1].active, tool == 4 ? 0 : 1) << "the slot is cleared";
  }
}

TEST_F(EditCommandsTest, ATriangleIsTakenBackCornerByCorner) {
  ChangeTool(editor, ToolMode::kAddPolygon);
  Click(200, 200);
  Click(240, 200);
  Move(250, 260);
  MenuDelete(editor);
  const auto& corners = map.polygons[6].vertices;
  const auto place = [&corners](std::size_t i) { return ScreenPoint{corners[i].x, corners[i].y}; };
  EXPECT_EQ(place(1), (ScreenPoint{250, 260})) << "now follows the pointer";
  EXPECT_EQ(place(2), (ScreenPoint{200, 200}));
  EXPECT_EQ(std::tuple(corners[1].u, corners[1].v), std::tuple(0, 0));
  Click(280, 210);
  EXPECT_EQ(std::tuple(place(1), editor.activity.PlacedCorners()),
            std::tuple(ScreenPoint{280, 210}, 2));
  for (int i = 0; i < 2; ++i) MenuDelete(editor);
  EXPECT_EQ(std::tuple(editor.activity.PlacedCorners(), map.polygons.last), std::tuple(0, 5));
  EXPECT_TRUE(editor.activity.Is(ActivityKind::kNone));
}

TEST_F(EditCommandsTest, WhatIsHalfDoneIsTakenBackFirst) {
  ChangeTool(editor, ToolMode::kAddScenery);
  editor.tool.value = kLianaType;
  map.sceneries.last = 253;
  Click(200, 200);
  MenuDelete(editor);
  EXPECT_EQ(std::tuple(map.sceneries.last, editor.tool.value), std::tuple(253, kLianaType))
      << "one, also of a full table";
  EXPECT_TRUE(editor.activity.Is(ActivityKind::kNone));
  ChangeTool(editor, ToolMode::kAddWaypoint);
  Click(40, 50);
  for (const char* left : {"012345", "01345"}) {  // the connection, then the hovered one
    MenuDelete(editor);
    EXPECT_EQ(NumbersIn(map)[5], left);
    Move(40, 50);
  }
}

TEST_F(EditCommandsTest, AHoveredCornerMayBeTakenBackAndSetsNoBox) {
  ChangeTool(editor, ToolMode::kAddPolygon);
  Move(100, 0);
  ASSERT_EQ(Listed(), "v5.0");
  MenuDelete(editor);
  EXPECT_EQ(Listed(), "");
  for (const auto command : {MenuCopy, MenuMirror}) {
    ChangeTool(editor, ToolMode::kAddPolygon);
    Move(90, 0);
    ChangeTool(editor, ToolMode::kEdit);
    ASSERT_EQ(Listed(), "v4.1");
    command(editor);
    EXPECT_TRUE(editor.clipboard.box.Complete());
  }
  Press(300, 200);  // the first corner of a box that never comes
  MenuMirror(editor);
  MenuCopy(editor);
  EXPECT_EQ(map.polygons[4].vertices[1].x, 90);
  EXPECT_TRUE(editor.clipboard.box.Complete());
}

/// `copy` is `original` at another place.
template <typename Record>
void ExpectCopy(Record copy, const Record& original) {
  copy.x = original.x;
  copy.y = original.y;
  if constexpr (requires { copy.authorChar; }) copy.authorChar = original.authorChar;
  if constexpr (requires { copy.id; }) copy.id = original.id;
  EXPECT_EQ(copy, original);
}

class ClipboardTest : public testing::Test, protected ToolBench {
 protected:
  ClipboardTest() { AddNumbered(map, 3); }
};

TEST_F(ClipboardTest, CopiesLieInTheTailOfTheTables) {
  ListVertices(selection, {{0, 1}, {2, 0}, {2, 2}});
  ListSlots(selection, {0, 2});
  MenuCopy(editor);
  EXPECT_TRUE(Steps().empty());
  TakeUndoSnapshot(editor, "Color");
  Bench undo;  // in the undo files, too
  undo.Load(journal.NewestFile(), false, true);
  const MapDocument& at = undo.map;
  EXPECT_THAT(NumbersIn(at), testing::Each("012"));
  const auto tail = [](const auto& table) { return std::span(table.slots).last(2); };
  EXPECT_THAT(tail(at.polygons), ElementsAre(map.polygons[2], map.polygons[0]));
  EXPECT_THAT(tail(at.spawns), ElementsAre(map.spawns[2], map.spawns[0]));
  EXPECT_THAT(tail(at.sceneries), ElementsAre(map.sceneries[0], map.sceneries[2]));
  EXPECT_THAT(tail(at.waypoints), ElementsAre(map.waypoints[2], map.waypoints[0]));
  ExpectCopy(at.colliders[126], map.colliders[2]);
  ExpectCopy(at.colliders[127], map.colliders[0]);
}

TEST_F(ClipboardTest, PasteAddsCopiesInTheMiddleOfTheView) {
  SelectEverything(selection, map);
  MenuCopy(editor);
  ClearLists(selection);
  selection.box = {9000, 9010, 7000, 7010};  // somebody else's
  selection.moveSnapshotTaken = true;
  editor.view.zoom = 2;
  TakeEvents();
  MenuPaste(editor);
  EXPECT_THAT(events,
              ElementsAre("RefreshInfoPanel", "RedrawMap", "RefreshInfoPanel", "RedrawMap"));
  EXPECT_EQ(Listed(),
            "v3.0 v3.1 v3.2 v4.0 v4.1 v4.2 v5.0 v5.1 v5.2 s3 s4 s5 o3 o4 o5 c3 c4 c5 w3 w4 w5");
  // The middle of the map's part of the window, below its top strip, is world 0, 12.5.
  EXPECT_EQ(selection.box, (SelectionBox{-25, 25, -12, 38}));
  for (int i = 0; i < 3; ++i) {
    ExpectCopy(map.polygons[i + 3].vertices[0], map.polygons[i].vertices[0]);
    EXPECT_EQ(map.polygons[i + 3].vertices[0].x, map.polygons[i].vertices[0].x - 25);
    EXPECT_EQ(map.polygons[i + 3].edges, map.polygons[i].edges);
    ExpectCopy(map.spawns[i + 3], map.spawns[i]);
    ExpectCopy(map.sceneries[i + 3], map.sceneries[i]);
    ExpectCopy(map.colliders[i + 3], map.colliders[i]);
    ExpectCopy(map.waypoints[i + 3], map.waypoints[i]);
  }
  EXPECT_EQ(map.spawns[29], map.spawns[3]) << "what was pasted is what is copied now";
  EXPECT_THAT(Steps(), ElementsAre("Paste", "Move"));
}

TEST_F(ClipboardTest, OneSlotStaysFreeAndWhatDoesNotFitIsToldAfterPasting) {
  map.polygons.last = 397;
  ListVertices(selection, {{0, 0}, {1, 0}, {2, 0}});
  selection.box = {0, 10, 0, 10};
  MenuCopy(editor);
  EXPECT_EQ(editor.clipboard.polygons.Count(), 1);
  TakeEvents();
  map.polygons.last = 398;
  MenuPaste(editor);
  EXPECT_EQ(map.polygons.last, 398);
  EXPECT_FALSE(selection.box.Complete()) << "no box without a selection";
  EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap", "Show Problem"));
  ExpectRefusal("Some of copied objects couldnt be pasted");
  map.polygons.last = 300;
  MenuPaste(editor);
  EXPECT_TRUE(dialogs.messages.empty()) << "told once";
}

}  // namespace
}  // namespace vesmora
