// Edit: picking, dragging and the handles, and what they build on.
#include <gmock/gmock.h>

#include <cmath>

#include "document/geometry.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/angles.h"
#include "tools/mouse_dispatch.h"
#include "tools/move_selection.h"
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
    AddWaypoint(map, 60, 60, 7);  // neither path
  }

  std::string In(const SelectionBox& box, SelectionKind kind = SelectionKind::kAll) {
    SelectInBox(editor, box, false, kind);
    return Listed();
  }
};

TEST_F(PickingTest, ABoxHoldsThePointsOnItsEdges) {
  using Row = std::tuple<SelectionBox, SelectionKind, std::string>;
  constexpr SelectionKind kVertex = SelectionKind::kFirstVertex;
  constexpr SelectionKind kWaypoint = SelectionKind::kFirstWaypoint;
  for (const auto& [box, kind, expected] :
       {Row({0, 10, 0, 0}, {}, "v0.0 v0.1"), Row({5.5f, 5.5f, 5, 5}, {}, "s0"),
        Row({30, 30, 30, 30}, {}, "o0"), Row({40, 40, 40, 40}, {}, "c0"),
        Row({50, 50.25f, 50, 50}, {}, "w0"), Row({60, 60, 60, 60}, {}, "w2"),
        Row({1, 99, -1, 99}, kVertex, "v0.1"), Row({50.25f, 99, 0, 99}, kWaypoint, "w1")}) {
    selection.moveSnapshotTaken = true;
    EXPECT_EQ(In(box, kind), expected) << box.left;
    EXPECT_FALSE(selection.moveSnapshotTaken) << "what was moved is not selected any more";
  }
  map.toolIndex = ToolMode::kAddPolygon;
  editor.activity.Begin(ActivityKind::kTriangle, editor);
  editor.activity.SetPlacedCorners(1);
  EXPECT_EQ(In(kEverywhere, kVertex), "") << "an unfinished triangle is not found";
  editor.show.showFlags = {0, 1, 0, 1, 1, 1, 1};
  editor.show.pathFilter = 2;
  EXPECT_EQ(In(kEverywhere), "s0 c0 w1") << "nor is what is hidden";
}

TEST_F(PickingTest, AClickLooksInGrowingSquares) {
  const std::array<float, 9> reaches = {0, 2, 5, 9, 14, 20, 27, 35, 44};
  for (const auto& [zoom, count] : {std::pair(4.0f, 1U), {1.0f, 4U}, {0.25f, 7U}}) {
    for (std::size_t i = 1; i <= count + 1U; ++i) {  // just beside the square before
      ToolBench bench;
      bench.editor.view.zoom = zoom;
      const float distance = reaches[i - 1] + (i == 1 ? 0 : 0.5f);
      AddCollider(bench.map, 100 - distance, 100 + distance, 1);
      bench.Click(100, 100);
      const float r = reaches[i];
      EXPECT_EQ(bench.Listed(), i <= count ? "c0" : "") << zoom << " " << distance;
      EXPECT_EQ(bench.selection.box,
                i <= count ? (SelectionBox{100 - r, 100 + r, 100 - r, 100 + r}) : SelectionBox{});
    }
  }
}

class EditToolTest : public testing::Test, protected ToolBench {
 protected:
  /// Which of the drags a press here starts.
  std::string StartedBy(float x, float y) {
    Press(x, y);
    const std::string started = editor.activity.Is(ActivityKind::kMove)     ? "move"
                                : editor.activity.Is(ActivityKind::kRotate) ? "rotate"
                                : editor.activity.Is(ActivityKind::kResize) ? "size"
                                                                            : "pick";
    Release();
    return started;
  }
};

TEST_F(EditToolTest, AClickBesideASelectionOnlyDeselects) {
  AddCollider(map, 100, 100, 5);
  editor.shiftDown = editor.ctrlDown = true;  // modifiers add nothing
  for (const auto& [x, y] : {std::pair(200.0f, 200.0f), {102.0f, 100.0f}, {100.0f, 98.0f}}) {
    Click(100, 100);  // the box reaches from 98 to 102
    TakeEvents();
    Press(x, y);
    EXPECT_THAT(events, IsEmpty());
    Release();
    EXPECT_EQ(std::tuple(Listed(), selection.box), std::tuple("", SelectionBox{}));
    EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap"));
    EXPECT_EQ(Pointer(), PointerShape::kDefault);
  }
}

TEST_F(EditToolTest, TheRubberBandSelectsLiveInEveryDirection) {
  AddCollider(map, 5, 10.875f, 5);  // reached only by an edge that is rounded to 11
  AddCollider(map, 10.125f, 5, 5);  // missed by an edge that is rounded to 10
  AddCollider(map, 15, 15, 5);
  AddCollider(map, 10, 20, 5);  // found by an edge that is rounded a second time
  using Row = std::tuple<float, float, std::string, SelectionBox>;
  for (const auto& [x, y, found, box] :
       {Row(20, 20.5f, "c2", {10.25f, 20, 10.75f, 20.5f}), Row(0, -5, "c0", {0, 10, -5, 11}),
        Row(20, -5, "", {}), Row(10.125f, 20.5f, "", {})}) {
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
    Drag(-300, -300, -310, -310);  // another band
  }
}

TEST_F(EditToolTest, ADragIsOneStepASelectionAndIgnoresTheGrid) {
  AddCollider(map, 100, 100, 5);
  Click(100, 100);
  editor.view.gridSize = 25;
  const DocumentState before = StateOf(map);
  Press(101.5f, 98.5f);
  TakeEvents();
  for (const float i : {1.0f, 20.0f, 50.0f}) Move(101.5f + i, 98.5f - i / 2);
  EXPECT_THAT(events, testing::Each("RedrawMap"));
  Release();
  EXPECT_EQ(selection.box, (SelectionBox{148, 152, 73, 77}));
  Drag(150, 75, 160, 80);
  EXPECT_THAT(Steps(), ElementsAre("Move"));
  EXPECT_TRUE(BeforeNewestStep() == before);
  Click(0, 0);
  Click(160, 80);
  Press(160, 80);
  editor.view.zoom = 4;  // in the middle of a drag flings nothing
  ForgetHover(editor);
  MoveMouse(editor, {.x = editor.view.lastMouseX + 4, .y = editor.view.lastMouseY});
  EXPECT_EQ(map.colliders[0].x, 161);
  EXPECT_THAT(Steps(), ElementsAre("Move", "Move"));
}

TEST_F(EditToolTest, HandlesComeBeforeTheBoxAndNeedOneScenery) {
  SceneryObject& scenery = AddScenery(map, 10.5f, 20.5f, 1);
  Click(10, 20);  // box 8 to 12 and 18 to 22, handles at 110.5, 20.5 and 110.5, 30.5
  using Row = std::tuple<float, float, PointerShape, const char*>;
  for (const auto& [x, y, pointer, drag] :
       {Row{110, 30, PointerShape::kSizeDiagonal, "size"},
        Row{113.4f, 20, PointerShape::kCross, "rotate"},
        Row{107, 20, PointerShape::kDefault, "pick"}, Row{10, 20, PointerShape::kMove, "move"}}) {
    Click(10, 20);
    Move(x, y);
    EXPECT_EQ(Pointer(), pointer) << x;
    EXPECT_EQ(StartedBy(x, y), drag);
  }
  EXPECT_THAT(Steps(), ElementsAre("Size", "Rotate")) << "taken at the press";
  scenery.scaleX = 0.02f;  // both handles inside the box
  EXPECT_EQ(StartedBy(11, 21), "rotate");
  scenery.type = 5;
  EXPECT_EQ(StartedBy(11, 21), "move") << "a liana has no rotate handle";
  scenery.rotation = kPi / 2;  // the size handle then lies at 21.5, 19.5
  selection.spawns.Append(0);
  EXPECT_EQ(StartedBy(21, 19), "size") << "other kinds may be selected, too";
  selection.sceneries.Append(0);
  EXPECT_EQ(StartedBy(21, 19), "pick");
}

/// A scenery of 100 x 10 units, whose handle is pressed while it is `before`, then pulled.
SceneryObject Pulled(const SceneryObject& before, float handleY, ScreenPoint to, bool shift) {
  ToolBench bench;
  SceneryObject& scenery = AddScenery(bench.map, 0, 0, 1);
  bench.Click(0, 0);
  bench.Press(100, handleY);
  scenery = before;
  bench.editor.shiftDown = shift;
  bench.Move(to.x, to.y);
  return scenery;
}

TEST_F(EditToolTest, TheHandlesRotateAndSizeAsTheMousePulls) {
  SceneryObject before = AddScenery(map, 0, 0, 1);
  using Rotation = std::tuple<float, bool, ScreenPoint, double>;  // in degrees
  for (const auto& [scaleX, shift, to, rotation] :
       {Rotation(1, true, {50, -40}, 45), Rotation(1, false, {-50, 50}, 225),
        Rotation(-1, true, {50, -40}, 225)}) {
    before.scaleX = scaleX;
    EXPECT_NEAR(Pulled(before, 0, to, shift).rotation, rotation * M_PI / 180, 1e-5) << to.x;
  }
  using Size = std::tuple<std::uint8_t, float, ScreenPoint, float, float>;
  for (const auto& [type, rotation, to, scaleX, scaleY] :
       {Size(5, 0, {200, 5.5f}, 4, 0.5f), Size(1, 0.3f, {2, 1}, 0.016151538f, 0.15463767f),
        Size(200, 0, {50, 50}, 1, 1)}) {  // there is nothing to scale by
    before = AddScenery(map, 0, 0, type);
    before.rotation = rotation;
    const SceneryObject after = Pulled(before, 10, to, false);
    EXPECT_NEAR(std::hypot(after.scaleX - scaleX, after.scaleY - scaleY), 0, 1e-5) << to.x;
  }
}

class MoveSelectionTest : public testing::Test, protected ToolBench {};

TEST_F(MoveSelectionTest, MovesWhatIsListedAndNothingElse) {
  AddNumbered(map, 2);
  selection.vertices.Append({0, 1});
  ListSlots(selection, {1});
  selection.box = {0, 50, 1, kUnsetCoordinate};
  const auto expected = std::make_unique<MapDocument>(map);
  const auto shift = [](auto& record, auto unit) {
    record.x += unit / 4;
    record.y -= unit * 8;
  };
  shift(expected->polygons[0].vertices[1], 1.0f);
  shift(expected->spawns[1], 256);
  shift(expected->sceneries[1], 1.0f);
  shift(expected->colliders[1], 1.0f);
  shift(expected->waypoints[1], 256);
  const DocumentState before = StateOf(map);
  MoveSelection(editor, {0.25f, -8});
  EXPECT_TRUE(StateOf(map) == StateOf(*expected));
  EXPECT_TRUE(BeforeNewestStep() == before);
  EXPECT_EQ(selection.box, (SelectionBox{0.25f, 50.25f, -7, kUnsetCoordinate}));
  EXPECT_THAT(events, IsEmpty());
  for (const auto& [x, moved] : {std::pair(2560, 2560), {2561, 2562}, {2147483647, 2147483647}}) {
    map.spawns[1].x = map.waypoints[1].y = x;
    MoveSelection(editor, {1.0f / 512, 1.0f / 512});
    EXPECT_EQ(map.spawns[1].x, moved) << "halves to even";
    EXPECT_EQ(map.waypoints[1].y, moved);
  }
  EXPECT_THAT(Steps(), ElementsAre("Move")) << "one a selection";
  using Row = std::tuple<float, float, bool, float, float>;  // texture
  for (const auto& [u, v, noCorrection, movedU, movedV] :
       {Row(0.5f, 0.25f, false, 0.6f, 0.35f), Row(0, 0.5f, false, 0, 0.5f),
        Row(0.5f, 0.25f, true, 0.5f, 0.25f)}) {
    PolygonVertex& corner = map.polygons[0].vertices[1];
    std::tie(corner.u, corner.v) = std::tuple(u, v);
    editor.tool.next.noTextureCorrection = noCorrection;
    MoveSelection(editor, {16, 12});
    EXPECT_NEAR(corner.u, movedU, 1e-6);
    EXPECT_NEAR(corner.v, movedV, 1e-6);
  }
}

TEST(AnglesTest, SnapToTheNearestEighthOfATurn) {
  using Row = std::pair<float, float>;
  for (const auto& [eighths, snapped] : {Row(-9, -2), Row(-1.51f, -2), Row(0.49f, 0), Row(0.5f, 1),
                                         Row(6.49f, 6), Row(6.6f, 6.6f)}) {  // from 6.5 they stay
    EXPECT_FLOAT_EQ(SnapAngle45(eighths * kPi / 4), snapped * kPi / 4) << eighths;
  }
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
