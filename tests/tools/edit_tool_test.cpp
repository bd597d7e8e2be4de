// Edit: picking, dragging and the handles, and what they build on.
#include <gmock/gmock.h>

#include <cmath>

#include "document/geometry.h"
#include "support/tool_bench.h"
#include "tools/angles.h"
#include "tools/mouse_dispatch.h"
#include "tools/move_selection.h"
#include "tools/numbered_objects.h"
#include "tools/picking.h"
#include "tools/property_text.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SelectionBox kEverywhere{.left = -99, .right = 99, .top = -99, .bottom = 99};

class PickingTest : public testing::Test, protected ToolBench {
 protected:
  PickingTest() {
    AddTriangle(map, {{{0, 0}, {10, 0}, {0, 10}}});
    AddSpawn(map, 5.5f, 5, 0);
    AddScenery(map, 30.5f, 30.5f, 1);
    AddCollider(map, 40, 40, 25);
    AddWaypoint(map, 50, 50, 1);
    AddWaypoint(map, 50.5f, 50, 2);
  }

  std::string In(const SelectionBox& box, SelectionKind kind = SelectionKind::kAll) {
    SelectInBox(editing, box, false, kind);
    return Listed();
  }
};

TEST_F(PickingTest, ABoxHoldsThePointsOnItsEdges) {
  using Row = std::tuple<SelectionBox, SelectionKind, std::string>;
  constexpr SelectionKind kVertex = SelectionKind::kFirstVertex;
  constexpr SelectionKind kWaypoint = SelectionKind::kFirstWaypoint;
  for (const auto& [box, kind, expected] :
       {Row({0, 10, 0, 0}, {}, "v0.0 v0.1"), Row({1, 9, 1, 4}, {}, ""),
        Row({5.5f, 5.5f, 5, 5}, {}, "s0"), Row({30, 30, 30, 30}, {}, "o0"),
        Row({30.25f, 31, 30, 31}, {}, ""), Row({40, 40, 40, 40}, {}, "c0"),
        Row({50, 50.25f, 50, 50}, {}, "w0"), Row({1, 99, -1, 99}, kVertex, "v0.1"),
        Row({30, 99, 30, 99}, kVertex, ""), Row({50.25f, 99, 0, 99}, kWaypoint, "w1")}) {
    EXPECT_EQ(In(box, kind), expected) << box.left;
  }
  map.toolIndex = ToolMode::kAddPolygon;
  state.tool.value = 1;
  EXPECT_EQ(In(kEverywhere, kVertex), "") << "an unfinished triangle is not found";
}

TEST_F(PickingTest, WhatIsHiddenIsNotFound) {
  const std::array<std::string, 5> kinds = {" v0.0 v0.1 v0.2", " s0", " o0", " c0", " w0 w1"};
  for (std::size_t hidden = 0; hidden < kinds.size(); ++hidden) {
    state.show = {};
    state.show.showFlags[hidden] = 0;
    std::string left;
    for (std::size_t i = 0; i < kinds.size(); ++i) left += i == hidden ? "" : kinds[i];
    EXPECT_EQ(" " + In(kEverywhere), left);
  }
  state.show = {};
  state.show.pathFilter = 2;
  EXPECT_EQ(In({45, 99, 45, 99}), "w1");
}

TEST_F(PickingTest, AClickLooksInGrowingSquares) {
  const std::array<float, 9> reaches = {0, 2, 5, 9, 14, 20, 27, 35, 44};
  for (const auto& [zoom, count] : {std::pair(4.0f, 1U), {1.0f, 4U}, {0.25f, 7U}}) {
    ToolBench bench;
    bench.state.view.zoom = zoom;
    for (std::size_t i = 1; i <= count + 1U; ++i) {  // just beside the square before
      const float distance = reaches[i - 1] + (i == 1 ? 0 : 0.5f);
      bench.map.lastCollider = -1;
      AddCollider(bench.map, 100 - distance, 100 + distance, 1);
      bench.selection = {};
      bench.Click(100, 100);
      const float r = reaches[i];
      EXPECT_EQ(bench.Listed(), i <= count ? "c0" : "") << zoom << " " << distance;
      EXPECT_EQ(bench.selection.box,
                i <= count ? (SelectionBox{100 - r, 100 + r, 100 - r, 100 + r}) : SelectionBox{});
    }
  }
  AddCollider(map, 100, 104, 9);
  AddSpawn(map, 95, 105, 0);
  Click(100, 100);
  EXPECT_EQ(Listed(), "s1 c1") << "all that the first filled square holds";
}

class EditToolTest : public testing::Test, protected ToolBench {
 protected:
  /// Which of the drags a press here starts.
  std::string StartedBy(float x, float y) {
    Press(x, y);
    const std::string started = selection.moving     ? "move"
                                : selection.rotating ? "rotate"
                                : selection.sizing   ? "size"
                                                     : "pick";
    Release();
    return started;
  }
};

TEST_F(EditToolTest, AClickBesideASelectionOnlyDeselects) {
  AddCollider(map, 100, 100, 5);
  state.shiftDown = state.ctrlDown = true;  // modifiers add nothing
  for (const auto& [x, y] : {std::pair(200.0f, 200.0f), {102.0f, 100.0f}, {100.0f, 98.0f}}) {
    Click(100, 100);  // the box reaches from 98 to 102
    selection.moveSnapshotTaken = true;
    TakeEvents();
    Press(x, y);
    EXPECT_EQ(Listed(), "c0");
    EXPECT_EQ(selection.box, (SelectionBox{x, kUnsetCoordinate, y, kUnsetCoordinate}));
    EXPECT_THAT(events, IsEmpty());
    Release();
    EXPECT_EQ(selection.box, SelectionBox{});
    EXPECT_FALSE(selection.moveSnapshotTaken || selection.buttonHeld);
    EXPECT_THAT(events, ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
  }
}

TEST_F(EditToolTest, TheRubberBandSelectsLiveInEveryDirection) {
  AddCollider(map, 5, 10.875f, 5);  // reached only by an edge that is rounded to 11
  AddCollider(map, 10.125f, 5, 5);  // missed by an edge that is rounded to 10
  AddCollider(map, 15, 15, 5);
  using Row = std::tuple<float, float, std::string, SelectionBox>;
  for (const auto& [x, y, found, box] :
       {Row(20, 20.5f, "c2", {10.25f, 20, 10.75f, 20.5f}), Row(0, 20, "c0", {0, 10, 10.75f, 20}),
        Row(0, -5, "c0", {0, 10, -5, 11}), Row(20, -5, "", {})}) {
    Press(10.25f, 10.75f);
    Move(90, 90);
    TakeEvents();
    Move(x, y);
    EXPECT_THAT(events, testing::IsSupersetOf({"RefreshInfoPanel", "RedrawMap"}));
    EXPECT_EQ(Listed(), found);
    EXPECT_EQ(selection.box, (SelectionBox{10.25f, x, 10.75f, y})) << "the anchor is kept";
    Release();
    EXPECT_EQ(Listed(), found);
    EXPECT_EQ(selection.box, box);
    if (found.empty()) continue;
    EXPECT_EQ(StartedBy((box.left + box.right) / 2, box.bottom - 1), "move");
    Drag(-300, -300, -310, -310);  // another band
  }
  EXPECT_THAT(Steps(), IsEmpty());
}

TEST_F(EditToolTest, ADragIsOneStepASelectionAndIgnoresTheGrid) {
  AddCollider(map, 100, 100, 5);
  Click(100, 100);
  state.view.zoom = 2;
  state.view.gridSize = 25;
  const DocumentState before = StateOf(map);
  Press(101.5f, 98.5f);
  TakeEvents();
  for (int i = 1; i <= 50; ++i) {
    Move(101.5f + static_cast<float>(i), 98.5f - static_cast<float>(i) / 2);
  }
  EXPECT_THAT(events, testing::Each("RedrawMap"));
  Release();
  EXPECT_EQ(selection.box, (SelectionBox{148, 152, 73, 77}));
  Drag(150, 75, 160, 80);
  EXPECT_THAT(Steps(), ElementsAre("Move"));
  EXPECT_TRUE(BeforeNewestStep() == before);
  Click(0, 0);
  Click(160, 80);
  Press(160, 80);
  state.view.zoom = 4;  // in the middle of a drag flings nothing
  ForgetHover(editing);
  MoveMouse(editing, {.x = state.view.lastMouseX + 4, .y = state.view.lastMouseY});
  EXPECT_EQ(map.colliders[0].x, 161);
  EXPECT_THAT(Steps(), ElementsAre("Move", "Move"));
}

TEST_F(EditToolTest, HandlesComeBeforeTheBoxAndNeedOneScenery) {
  SceneryObject& scenery = AddScenery(map, 10.5f, 20.5f, 1);
  Click(10, 20);  // box 8 to 12 and 18 to 22, handles at 110.5, 20.5 and 110.5, 30.5
  using Row = std::tuple<float, float, PointerShape, const char*>;
  for (const auto& [x, y, pointer, drag] :
       {Row{110, 20, PointerShape::kCross, "rotate"},
        Row{110, 30, PointerShape::kSizeDiagonal, "size"},
        Row{113.4f, 20, PointerShape::kCross, "rotate"},
        Row{107, 20, PointerShape::kDefault, "pick"}, Row{10, 20, PointerShape::kMove, "move"}}) {
    Click(10, 20);
    Move(x, y);
    EXPECT_EQ(display.pointer, pointer) << x;
    EXPECT_EQ(StartedBy(x, y), drag);
  }
  EXPECT_THAT(Steps(), ElementsAre("Rotate", "Size", "Rotate")) << "taken at the press";
  Press(10, 20);
  display.pointer = PointerShape::kDefault;
  Move(11, 20);
  EXPECT_EQ(display.pointer, PointerShape::kDefault) << "the button is held";
  Release();
  scenery.scaleX = 0.02f;  // both handles inside the box
  EXPECT_EQ(StartedBy(12, 21), "rotate");
  scenery.type = 5;
  EXPECT_EQ(StartedBy(12, 21), "move") << "a liana has no rotate handle";
  scenery.rotation = kPi / 2;  // the size handle then lies at 21.5, 19.5
  selection.spawns.Add(0);
  EXPECT_EQ(StartedBy(21, 19), "size") << "other kinds may be selected, too";
  selection.sceneries.Add(0);
  EXPECT_EQ(StartedBy(21, 19), "pick");
}

TEST_F(EditToolTest, TheHandlesRotateAndSizeAsTheMousePulls) {
  using Rotation = std::tuple<double, bool, float, double>;  // in degrees
  for (const auto& [mouse, shift, scaleX, rotation] :
       {Rotation(30, false, 1, 30), Rotation(30, true, 1, 45), Rotation(-100, false, 1, 260),
        Rotation(30, true, -1, 225)}) {
    ToolBench bench;
    SceneryObject& scenery = AddScenery(bench.map, 0, 0, 1);
    bench.Click(0, 0);
    bench.Press(100, 0);
    scenery.scaleX = scaleX;
    bench.state.shiftDown = shift;
    bench.Move(static_cast<float>(50 * std::cos(mouse * M_PI / 180)),
               static_cast<float>(-50 * std::sin(mouse * M_PI / 180)));
    EXPECT_NEAR(scenery.rotation, rotation * M_PI / 180, 1e-5) << mouse;
  }
  using Size = std::tuple<std::uint8_t, float, ScreenPoint, float, float>;
  for (const auto& [type, rotation, mouse, scaleX, scaleY] :
       {Size(5, 0, {200, 5.5f}, 4, 0.5f), Size(1, 0, {-150, -30}, -1.5f, -3),
        Size(1, 0.3f, {2, 1}, 0.016151538f, 0.15463767f),
        Size(200, 0, {50, 50}, 1, 1)}) {  // there is nothing to scale by
    ToolBench bench;
    SceneryObject& scenery = AddScenery(bench.map, 0, 0, 1);
    bench.Click(0, 0);
    bench.Press(100, 10);
    scenery.type = type;
    scenery.rotation = rotation;
    bench.Move(mouse.x, mouse.y);
    EXPECT_NEAR(scenery.scaleX, scaleX, 1e-5);
    EXPECT_NEAR(scenery.scaleY, scaleY, 1e-5);
  }
}

TEST_F(EditToolTest, EscapeTakesADragBack) {
  using Row = std::tuple<ScreenPoint, std::string, std::vector<std::string>>;
  for (const auto& [from, listed, steps] :
       {Row({10, 20}, "o0", {"Move"}), Row({110, 20}, "o0", {"Rotate"}),
        Row({190, 190}, "s0", {})}) {
    ToolBench bench;
    AddScenery(bench.map, 10.5f, 20.5f, 1);
    AddSpawn(bench.map, 200, 200, 0);
    bench.Click(10, 20);
    const DocumentState before = StateOf(bench.map);
    bench.Press(from.x, from.y);
    bench.Move(210, 210);
    EXPECT_EQ(std::tuple(bench.Listed(), bench.Steps()), std::tuple(listed, steps));
    bench.TakeEvents();
    CancelGesture(bench.editing);
    bench.Release();  // does nothing any more
    EXPECT_THAT(bench.events, ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
    EXPECT_TRUE(StateOf(bench.map) == before) << from.x;
    EXPECT_EQ(bench.Listed(), "o0");
    EXPECT_THAT(bench.Steps(), IsEmpty());
  }
}

class MoveSelectionTest : public testing::Test, protected ToolBench {};

TEST_F(MoveSelectionTest, MovesWhatIsListedAndNothingElse) {
  AddNumbered(map, 2);
  selection.vertices.Add({0, 1});
  ListSlots(selection, {1});
  selection.box = {0, 50, 1, kUnsetCoordinate};
  const auto expected = std::make_unique<MapDocument>(map);
  const auto shift = [](auto& record, auto dx, auto dy) {
    record.x += dx;
    record.y += dy;
  };
  shift(expected->polygons[0].vertices[1], 0.25f, -8.0f);
  shift(expected->spawns[1], 64, -2048);
  shift(expected->sceneries[1], 0.25f, -8.0f);
  shift(expected->colliders[1], 0.25f, -8.0f);
  shift(expected->waypoints[1], 64, -2048);
  const DocumentState before = StateOf(map);
  MoveSelection(editing, 0.25f, -8);
  EXPECT_TRUE(StateOf(map) == StateOf(*expected));
  EXPECT_TRUE(BeforeNewestStep() == before);
  EXPECT_EQ(selection.box, (SelectionBox{0.25f, 50.25f, -7, kUnsetCoordinate}));
  EXPECT_THAT(events, IsEmpty());
  for (const auto& [x, moved] : {std::pair(2560, 2560), {2561, 2562}, {2147483647, 2147483647}}) {
    map.spawns[1].x = map.waypoints[1].y = x;
    MoveSelection(editing, 1.0f / 512, 1.0f / 512);
    EXPECT_EQ(map.spawns[1].x, moved) << "halves to even";
    EXPECT_EQ(map.waypoints[1].y, moved);
  }
  EXPECT_THAT(Steps(), ElementsAre("Move")) << "one a selection";
  using Row = std::tuple<float, float, bool, float, float>;  // texture
  for (const auto& [u, v, noCorrection, movedU, movedV] :
       {Row(0.5f, 0.25f, false, 0.6f, 0.35f), Row(0, 0.5f, false, 0, 0.5f),
        Row(0.5f, 0, false, 0.5f, 0), Row(0.5f, 0.25f, true, 0.5f, 0.25f)}) {
    PolygonVertex& corner = map.polygons[0].vertices[1];
    std::tie(corner.u, corner.v) = std::tuple(u, v);
    state.tool.next.noTextureCorrection = noCorrection;
    MoveSelection(editing, 16, 12);
    EXPECT_NEAR(corner.u, movedU, 1e-6);
    EXPECT_NEAR(corner.v, movedV, 1e-6);
  }
}

TEST_F(MoveSelectionTest, CentringPutsTheBoxInTheMiddleOfTheView) {
  state.view.zoom = 2;
  state.view.centerX = 100.25f;
  selection.box = {10.5f, 31.5f, 5, 15};
  CenterSelection(editing);  // its place is rounded: 89.75, 7.5
  EXPECT_EQ(selection.box, (SelectionBox{90, 111, 8, 18}));
}

TEST(SnapAngle45Test, GivesTheNearestEighthOfATurn) {
  for (int eighth = -2; eighth <= 5; ++eighth) {
    const auto snapped = [eighth](double off) {
      return SnapAngle45(static_cast<float>((eighth + 0.5 + off) * M_PI / 4)) / M_PI * 4;
    };
    EXPECT_NEAR(snapped(-1e-4), eighth, 1e-6);
    EXPECT_NEAR(snapped(1e-4), eighth + 1, 1e-6);
  }
  EXPECT_EQ(SnapAngle45(-7), -kPi / 2);
  EXPECT_EQ(SnapAngle45(5.2f), 5.2f) << "from 13/8 pi on they stay";
  EXPECT_EQ(SnapAngle45(kPi / 8), kPi / 4) << "a tie goes to the larger one";
}

TEST(PropertyTextTest, NumbersAndVisibilityReadAndShow) {
  using Row = std::pair<const char*, double>;
  for (const auto& [text, number] : {Row("  20.5 px", 20.5), Row("+4", 4), Row("12,5", 12),
                                     Row("", 0), Row("px 7", 0), Row("inf", 0)}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
  }
  for (const auto& [text, level] : {Row("75%", 191), Row("", 255), Row("500%", 255), Row("%", 0)}) {
    EXPECT_EQ(VisibilityLevel(text), level) << text;
  }
  EXPECT_EQ(NumberText(-1.0f / 3) + VisibilityText(191), "-0.3333333475%");
}

}  // namespace
}  // namespace vesmora
