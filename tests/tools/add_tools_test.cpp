// The Add tools, and changing to them and back.
#include <gmock/gmock.h>

#include <cmath>

#include "document/geometry.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

constexpr MapColor kOld = {.blue = 1, .green = 2, .red = 3, .alpha = 7};
constexpr MapColor kRecoloured = {.blue = 30, .green = 20, .red = 10, .alpha = 7};
constexpr ScreenPoint kAway = {100.5f, 20.25f};  // over no vertex
constexpr ScreenPoint kVertex = {57, 46};
constexpr ScreenPoint kOverVertex = {59, 47};
constexpr ScreenPoint kAwaySnapped = {100, 25};

/// Two triangles share the corner 57, 46; one more has a corner right beside it.
struct PolygonBench : ToolBench {
  PolygonBench() {
    for (const float x : {57.0f, 57.5f, 57.0f}) {
      for (PolygonVertex& vertex : AddTriangle(map, {{{-300, 0}, {x, 46}, {-300, 50}}}).vertices) {
        vertex.color = kOld;
      }
    }
    ChangeTool(editor, ToolMode::kAddPolygon);
    editor.tool.next.vertexColor = {10, 20, 30};
  }

  PolygonVertex& Corner(std::size_t i) { return map.polygons.Last().vertices[i]; }
};

class AddPolygonTest : public testing::Test, protected PolygonBench {};

TEST_F(AddPolygonTest, ACornerGoesToTheVertexTheGridOrAnEighthOfATurn) {
  struct Row {
    std::size_t corner;  // the first, whose like all three become, or the second
    std::string keys;    // grid, ctrl, shift
    ScreenPoint mouse, place;
    ScreenPoint textured;  // the world point whose texture the corner shows
    bool recolours;
  };
  constexpr ScreenPoint kRay = {9.513149f, 9.513149f};          // 13.454 away, as 10, 9 is
  constexpr ScreenPoint kVertexRay = {53.338541f, 53.338541f};  // 75.432 away, as 59, 47 is
  for (const Row& row : {Row{0, "shift", kOverVertex, kVertex, kVertex, true},
                         Row{0, "grid", kOverVertex, {50, 50}, {50, 50}, true},
                         Row{0, "grid ctrl", kOverVertex, kVertex, kVertex, true},
                         Row{1, "grid", kAway, kAwaySnapped, kAway, false},
                         Row{1, "grid", kOverVertex, kVertex, kVertex, true},
                         Row{1, "grid shift", {10, 9}, kRay, {10, 9}, false},
                         Row{1, "shift", kOverVertex, kVertexRay, kOverVertex, false}}) {
    PolygonBench bench;
    const auto has = [&row](const char* key) { return row.keys.find(key) != std::string::npos; };
    if (row.corner == 1) bench.Click(0, 0);
    // Hovers as if neither grid nor Shift were there, then clicks with them.
    bench.editor.tool.next.vertexColor = {10, 20, 30};
    bench.editor.ctrlDown = true;
    bench.Move(row.mouse.x, row.mouse.y);
    bench.editor.view.gridSize = has("grid") ? 25 : 0;
    bench.editor.ctrlDown = has("ctrl");
    bench.editor.shiftDown = has("shift");
    bench.Press(row.mouse.x, row.mouse.y);
    const PolygonVertex& vertex = bench.Corner(row.corner);
    EXPECT_NEAR(std::hypot(vertex.x - row.place.x, vertex.y - row.place.y), 0, 1e-3) << row.keys;
    EXPECT_FLOAT_EQ(vertex.u, row.textured.x / 160) << row.keys;
    EXPECT_FLOAT_EQ(vertex.v, row.textured.y / 120) << row.keys;
    EXPECT_EQ(vertex.color, (MapColor{30, 20, 10, 255}));
    EXPECT_EQ(bench.Corner(2) == vertex, row.corner == 0);
    for (const int i : {0, 1, 2}) {
      EXPECT_EQ(bench.map.polygons[i].vertices[1].color,
                row.recolours && i != 1 ? kRecoloured : kOld)
          << row.keys;
    }
  }
}

TEST_F(AddPolygonTest, TheNextCornerFollowsThePointerAndTheThirdFinishes) {
  Click(0, 0);
  Move(52, 41);
  EXPECT_EQ(std::pair(Corner(1).x, Corner(1).y), std::pair(kVertex.x, kVertex.y));
  EXPECT_EQ(Listed(), "v0.1");
  editor.view.gridSize = 25;
  Move(kAway.x, kAway.y);
  EXPECT_EQ(std::pair(Corner(1).x, Corner(1).y), std::pair(kAwaySnapped.x, kAwaySnapped.y));
  EXPECT_EQ(Listed(), "") << "the pointer has left it";
  editor.view.gridSize = 0;
  Move(1, 1);
  EXPECT_EQ(Listed(), "") << "never a corner of its own";
  Click(30, 0);
  editor.shiftDown = true;
  Click(40, 8);
  EXPECT_NEAR(Corner(2).y, 9.055385, 1e-3) << "from the corner before, not from the first";
  EXPECT_EQ(std::tuple(editor.activity.PlacedCorners(), map.polygons.last), std::tuple(0, 3));
  EXPECT_NE(map.polygons[3].edges[0].x, 0) << "a zero would make the edge passable";
  Click(100, 100);
  ChangeTool(editor, ToolMode::kAddSpawn);
  EXPECT_EQ(map.polygons.last, 3) << "a half-built one goes with its tool";
}

class AddObjectsTest : public testing::Test, protected ToolBench {};

TEST_F(AddObjectsTest, EachClickIsAStepUntilTheTableIsFull) {
  using Row = std::tuple<ToolMode, int, const char*, const char*>;
  for (const auto& [tool, capacity, kind, step] :
       {Row(ToolMode::kAddPolygon, 400, "polygons", "Polygon"),
        Row(ToolMode::kAddSpawn, 30, "spawns", "Spwan"),
        Row(ToolMode::kAddScenery, 255, "sceneries", "Scenery"),
        Row(ToolMode::kAddCollider, 128, "colliders", "Collider"),
        Row(ToolMode::kAddWaypoint, 500, "waypoints", "Waypoint")}) {
    ToolBench bench;
    ChangeTool(bench.editor, tool);
    const std::vector<std::int16_t*> lasts = {&bench.map.polygons.last, &bench.map.spawns.last,
                                              &bench.map.sceneries.last, &bench.map.colliders.last,
                                              &bench.map.waypoints.last};
    std::int16_t& last = *lasts[static_cast<std::size_t>(tool) - 1];
    last = static_cast<std::int16_t>(capacity - 2);
    const DocumentState before = StateOf(bench.map);
    bench.TakeEvents();
    bench.Press(333, 222);
    EXPECT_EQ(last, capacity - 1) << step;
    EXPECT_THAT(bench.events, ElementsAre("RefreshInfoPanel", "RedrawMap"));
    EXPECT_THAT(bench.Steps(), ElementsAre(step));
    EXPECT_TRUE(bench.BeforeNewestStep() == before) << step;
    bench.editor.activity.Finish(bench.editor);
    last = static_cast<std::int16_t>(capacity - 1);
    bench.Move(300, 200);
    bench.TakeEvents();
    const DocumentState full = StateOf(bench.map);
    bench.Press(310, 190);
    EXPECT_THAT(bench.events, ElementsAre("Show Problem")) << "not even the picture changes";
    EXPECT_TRUE(StateOf(bench.map) == full) << step;
    bench.ExpectRefusal("Max number of " + std::string(kind) + " reached.");
    EXPECT_EQ(bench.Steps().size(), 1U);
  }
}

TEST_F(AddObjectsTest, ObjectsTakePlaceAndPropertiesAndShowTheNextOne) {
  MapDocument expected;
  for (const bool ctrl : {false, true}) {
    editor.view.gridSize = 25;
    editor.ctrlDown = ctrl;
    using Choice = std::pair<ToolMode, std::int16_t>;
    for (const auto& [tool, value] :
         {Choice(ToolMode::kAddSpawn, 2), Choice(ToolMode::kAddCollider, 7),
          Choice(ToolMode::kAddScenery, 2)}) {
      ChangeTool(editor, tool);
      editor.tool.value = value;
      editor.tool.next.visibility = "50%";
      Click(37.5f, 12.5f);
    }
    const ScreenPoint place = ctrl ? ScreenPoint{37.5f, 12.5f} : ScreenPoint{50, 0};
    const int slot = ctrl ? 1 : 0;
    AddSpawn(expected, place.x, place.y, 2).active = 256;
    AddCollider(expected, place.x, place.y, 7).authorChar = map.colliders[slot].authorChar;
    AddScenery(expected, place.x + 0.5f, place.y + 0.5f, 2).level = 128;
    EXPECT_EQ(map.spawns[slot], expected.spawns[slot]);
    EXPECT_EQ(map.spawns[slot + 1], expected.spawns[slot]) << "the next one's preview";
    EXPECT_EQ(map.colliders[slot], expected.colliders[slot]);
    EXPECT_EQ(map.sceneries[slot], expected.sceneries[slot]);
  }
}

TEST_F(AddObjectsTest, ALianaGetsItsDirectionByASecondClickOrHangsDown) {
  const auto begin = [](ToolBench& bench) {
    ChangeTool(bench.editor, ToolMode::kAddScenery);
    bench.editor.tool.value = 5;
    bench.Click(10, 0);
    EXPECT_EQ(bench.map.sceneries[0].rotation, -kPi / 2);
  };
  using Row = std::tuple<ScreenPoint, bool, double>;  // in degrees, from the stored place
  for (const auto& [click, shift, rotation] :
       {Row({10.5f, 30.5f}, false, -90), Row({40.5f, -19.5f}, true, 45),
        Row({10, 0}, false, 135)}) {
    ToolBench bench;
    begin(bench);
    bench.editor.shiftDown = shift;
    bench.Click(click.x, click.y);
    EXPECT_NEAR(bench.map.sceneries[0].rotation, rotation * M_PI / 180, 1e-6) << rotation;
    EXPECT_EQ(std::tuple(bench.map.sceneries.last, bench.editor.tool.value), std::tuple(0, 5));
    EXPECT_THAT(bench.Steps(), ElementsAre("Scenery"));
    EXPECT_TRUE(bench.editor.activity.Is(ActivityKind::kNone));
  }
  for (const bool isCancelled : {true, false}) {
    begin(*this);
    Move(40, -30);
    isCancelled ? CancelGesture(editor) : ChangeTool(editor, ToolMode::kEdit);
    EXPECT_EQ(map.sceneries.last, isCancelled ? -1 : 0);
    EXPECT_EQ(Steps().empty(), isCancelled);
  }
  EXPECT_EQ(map.sceneries[0].rotation, -kPi / 2);
}

class AddWaypointTest : public AddObjectsTest {
 protected:
  AddWaypointTest() { ChangeTool(editor, ToolMode::kAddWaypoint); }
};

TEST_F(AddWaypointTest, CreatesUnderThePointerAndDrawsChains) {
  editor.view.gridSize = 25;
  editor.tool.value = 2;
  editor.tool.next.botSettings = {1, 0, 1, 0, 1};
  map.waypoints[0].connectionCount = 3;  // what lay there
  Press(37.25f, -12.5f);
  EXPECT_EQ(map.waypoints[0], (Waypoint{1, 1, 9536, -3200, {1, 0, 1, 0, 1}, {}, 2, 0, {}}));
  for (const auto& [count, after] : {std::pair(0, 1), {19, 20}, {20, 20}, {-3, 1}}) {
    editor.ctrlDown = count != 0;
    editor.shiftDown = !editor.ctrlDown;
    Waypoint& last = map.waypoints.Last();
    last.connectionCount = count;
    Click(static_cast<float>(map.waypoints.last) * 50, 100);
    EXPECT_EQ(last.connectionCount, after);
    const auto added = static_cast<std::size_t>(after - 1);
    EXPECT_TRUE(after == count || last.connections[added] == map.waypoints.last + 1);
  }
}

TEST_F(AddWaypointTest, TwoClicksConnectOneWay) {
  for (int i = 0; i < 3; ++i) AddWaypoint(map, 100.0f * static_cast<float>(i), 0, 1);
  for (const float target : {204.0f, 200.0f, 100.0f}) {  // again, and to itself
    Click(104, 4);
    Click(target, 0);
  }
  EXPECT_THAT(LinksOf(map, 1), ElementsAre(3, 3, 2));
  Click(0, 0);
  EXPECT_EQ(editor.activity.Anchor(), 0);
  Move(50, 40);
  Press(50, 40, MouseButton::kRight);
  MoveMouse(editor, {MouseButton::kNone, 700, 500});
  EXPECT_EQ(std::pair(editor.tool.mouseX, editor.tool.mouseY), std::pair(50, 40))
      << "the view moves along with the pointer";
  Release(MouseButton::kRight);
  CancelGesture(editor);
  EXPECT_EQ(editor.activity.Anchor(), kNoIndex);
  Click(100, 0);
  map.waypoints[0].connectionCount = map.waypoints[1].connectionCount = 20;  // in the meantime
  Click(200, 0);
  EXPECT_EQ(map.waypoints[1].connectionCount, 20);
  Move(0, 0);
  TakeEvents();
  Press(0, 0);
  EXPECT_THAT(events, ElementsAre("Show Problem"));
  ExpectRefusal("Selected waypoint have max number of connections.");
  EXPECT_EQ(editor.activity.Anchor(), kNoIndex);
  EXPECT_EQ(Steps(), std::vector<std::string>(5, "Waypoint"));
  EXPECT_EQ(map.waypoints.last, 2);
}

class ToolChangeTest : public testing::Test, protected ToolBench {};

TEST_F(ToolChangeTest, AnAddToolStartsCleanAndShowsItsKind) {
  AddCollider(map, 0, 0, 12);
  for (std::size_t tool = 1; tool < kToolCount; ++tool) {
    SelectEverything(selection, map);
    selection.moveSnapshotTaken = true;
    editor.activity.Begin(ActivityKind::kPlacement, editor);
    editor.show.showFlags.fill(0);
    ChangeTool(editor, static_cast<ToolMode>(tool));
    std::array<std::int16_t, 7> shown{};
    shown[tool - 1] = 1;
    EXPECT_EQ(editor.show.showFlags, shown);
    EXPECT_EQ(Listed(), "");
    EXPECT_FALSE(selection.moveSnapshotTaken || !editor.activity.Is(ActivityKind::kNone));
    EXPECT_EQ(Pointer(), PointerShape::kCross);
    SelectEverything(selection, map);
    editor.tool.value = 3;
    editor.activity.Begin(ActivityKind::kConnection, editor, 3);
    ChangeTool(editor, ToolMode::kEdit);
    EXPECT_EQ(Listed(), "c0") << "Edit keeps the selection";
    EXPECT_EQ(std::tuple(editor.activity.Anchor(), editor.tool.value), std::tuple(kNoIndex, 0));
    EXPECT_EQ(Pointer(), PointerShape::kDefault);
  }
  const SelectionBox box = {5, 4.5f, 7, 3.25f};
  for (const SelectionBox& kept : {box, SelectionBox{}}) {
    selection.box = kept;
    ChooseTool(editor, ToolMode::kEdit);
    EXPECT_EQ(selection.box, kept) << "chosen again, Edit leaves the box alone";
  }
}

TEST_F(ToolChangeTest, OffersWhatTheLastObjectHas) {
  const auto offered = [this] {
    std::vector<std::int16_t> values;
    for (int tool = 1; tool < kToolCount; ++tool) {
      ChangeTool(editor, static_cast<ToolMode>(tool));
      values.push_back(editor.tool.value);
    }
    return values;
  };
  EXPECT_THAT(offered(), ElementsAre(0, 0, 1, 12, 1));
  AddTriangle(map, {}).vertices[2].color = {.blue = 2, .green = 5, .red = 6, .alpha = 0};
  AddScenery(map, 0, 0, 5).level = 191;
  AddCollider(map, 0, 0, 20.5f);
  AddWaypoint(map, 0, 0, 8).botSettings = {1, 2, 0, 0, 1};
  EXPECT_THAT(offered(), ElementsAre(0, 0, 5, 20, 2)) << "any path but the first is the second";
  const NextObject& next = editor.tool.next;
  EXPECT_EQ(next.vertexColor, (Rgb{6, 5, 2}));
  EXPECT_EQ(NextVisibility(editor) + next.colliderSize, "75%20.5");
  EXPECT_EQ(next.botSettings, (std::array<std::uint8_t, 5>{1, 2, 0, 0, 1}));
}

}  // namespace
}  // namespace vesmora
