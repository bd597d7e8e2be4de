#include <gmock/gmock.h>

#include <cmath>
#include <tuple>

#include "document/geometry.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

class EditToolTest : public testing::Test, protected ToolBench {
 protected:
  /// Clicks a lone collider, whose box then reaches from 98 to 102 on both axes.
  void PickCollider() {
    AddCollider(map, 100, 100, 5);
    Click(100, 100);
    ASSERT_EQ(Listed(), "c0");
    ASSERT_EQ(selection.box, (SelectionBox{98, 102, 98, 102}));
    TakeEvents();
  }

  SceneryObject& PickScenery(std::uint8_t type) {
    SceneryObject& scenery = AddScenery(map, 10.5f, 20.5f, type);
    Click(10, 20);
    EXPECT_EQ(selection.sceneries.Count(), 1);
    return scenery;
  }

  /// Which of the drags a press here starts.
  std::string StartedBy(float x, float y) {
    Press(x, y);
    std::string started;
    if (selection.moving) started += "move";
    if (selection.rotating) started += "rotate";
    if (selection.sizing) started += "size";
    Release();
    return started.empty() ? "pick" : started;
  }
};

TEST_F(EditToolTest, AClickBesideASelectionOnlyDeselects) {
  PickCollider();
  AddSpawn(map, 200, 200, 0);
  state.shiftDown = state.ctrlDown = true;  // modifiers add nothing
  for (const auto& [x, y] : {std::pair(200.0f, 200.0f), {102.0f, 100.0f}, {100.0f, 98.0f}}) {
    selection.moveSnapshotTaken = true;
    Move(x, y);
    TakeEvents();
    Press(x, y);
    EXPECT_EQ(Listed(), "c0");
    EXPECT_EQ(selection.box, (SelectionBox{x, kUnsetCoordinate, y, kUnsetCoordinate}));
    EXPECT_THAT(TakeEvents(), IsEmpty());
    Release();
    EXPECT_EQ(Listed(), "");
    EXPECT_EQ(selection.box, SelectionBox{});
    EXPECT_FALSE(selection.moveSnapshotTaken || selection.buttonHeld);
    EXPECT_THAT(TakeEvents(), ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
    Click(200, 200);
    EXPECT_EQ(Listed(), "s0");
    Click(0, 0);
    Click(100, 100);
  }
  EXPECT_THAT(Steps(), IsEmpty());
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
    Move(x, y);
    EXPECT_EQ(Listed(), found);
    EXPECT_EQ(selection.box, (SelectionBox{10.25f, x, 10.75f, y})) << "the anchor is kept";
    Move(20, 20.5f);
    EXPECT_EQ(Listed(), "c2");
    Move(90, 90);
    TakeEvents();
    Move(x, y);
    EXPECT_THAT(TakeEvents(), testing::IsSupersetOf({"RefreshInfoPanel", "RedrawMap"}));
    Release();
    EXPECT_EQ(Listed(), found);
    EXPECT_EQ(selection.box, box);
    if (found.empty()) continue;
    EXPECT_EQ(StartedBy((box.left + box.right) / 2, box.bottom - 1), "move");
    Click(-300, -300);
  }
  EXPECT_THAT(Steps(), IsEmpty());
}

TEST_F(EditToolTest, ADragBesideASelectionStartsANewBand) {
  PickCollider();
  AddSpawn(map, 200, 200, 0);
  Drag(101, 101, 102, 101);
  Press(190, 190);
  Move(195, 195);
  EXPECT_EQ(Listed(), "");
  EXPECT_EQ(selection.box, (SelectionBox{190, 195, 190, 195}));
  Move(210, 210);
  Release();
  EXPECT_EQ(Listed(), "s0");
  Drag(200, 200, 300, 200);
  EXPECT_EQ(map.spawns[0].x, 300 * 256);
  EXPECT_THAT(Steps(), ElementsAre("Move")) << "nothing was deselected in between";
}

TEST_F(EditToolTest, ADragIsOneStepASelectionAndIgnoresTheGrid) {
  PickCollider();
  state.view.zoom = 2;
  state.view.gridSize = 25;
  const DocumentState before = StateOf(map);
  Press(101.5f, 98.5f);
  for (int i = 1; i <= 50; ++i) {
    TakeEvents();
    Move(101.5f + static_cast<float>(i), 98.5f - static_cast<float>(i) / 2);
    EXPECT_THAT(TakeEvents(), ElementsAre("RedrawMap"));
  }
  Release();
  EXPECT_EQ(selection.box, (SelectionBox{148, 152, 73, 77}));
  Drag(150, 75, 160, 80);
  EXPECT_EQ(map.colliders[0].x, 160);
  EXPECT_EQ(map.colliders[0].y, 80);
  EXPECT_THAT(Steps(), ElementsAre("Move"));
  EXPECT_EQ(BeforeNewestStep(), before);
  Click(0, 0);
  Click(160, 80);
  Drag(160, 80, 161, 80);
  EXPECT_THAT(Steps(), ElementsAre("Move", "Move"));
}

TEST_F(EditToolTest, HandlesComeBeforeTheBoxAndNeedOneScenery) {
  PickScenery(1);  // handles at 110.5, 20.5 and 110.5, 30.5
  EXPECT_EQ(StartedBy(110, 20), "rotate");
  EXPECT_EQ(StartedBy(110, 30), "size");
  EXPECT_EQ(StartedBy(113.4f, 20), "rotate");
  EXPECT_EQ(StartedBy(10, 20), "move");
  EXPECT_THAT(Steps(), ElementsAre("Rotate", "Size", "Rotate")) << "taken at the press";
  map.sceneries[0].scaleX = 0.02f;  // both handles into the box, over each other
  map.sceneries[0].scaleY = 0.3f;
  EXPECT_EQ(StartedBy(12, 22), "rotate");
  EXPECT_EQ(StartedBy(12, 26), "size");
  map.sceneries[0].type = 5;
  map.sceneries[0].scaleX = 0.04f;
  EXPECT_EQ(StartedBy(12, 22), "size");
  map.sceneries[0].scaleX = 1;
  EXPECT_EQ(StartedBy(60, 20), "pick") << "a liana has no rotate handle";
  EXPECT_EQ(Listed(), "");

  map.sceneries[0] = {};
  map.lastScenery = -1;
  AddSpawn(map, 11, 21, 0);
  PickScenery(1);
  EXPECT_EQ(Listed(), "s0 o0");
  EXPECT_EQ(StartedBy(110, 30), "size") << "other kinds may be selected, too";
  AddScenery(map, 10.5f, 20.5f, 1);
  selection.sceneries.Add(1);
  EXPECT_EQ(StartedBy(110, 30), "pick");
  const auto steps = Steps();
  EXPECT_EQ(std::count(steps.begin(), steps.end(), "Size"), 4);
}

TEST_F(EditToolTest, RotatePointsTheSceneryAtTheMouse) {
  using Row = std::tuple<double, bool, float, double>;  // in degrees
  for (const auto& [mouse, shift, scaleX, rotation] :
       {Row(30, false, 1, 30), Row(30, true, 1, 45), Row(22, true, 1, 0), Row(100, true, 1, 90),
        Row(-100, false, 1, 260), Row(-60, true, 1, -45), Row(-75, true, 1, -90),
        Row(30, true, -1, 225), Row(100, false, -0.1f, 280), Row(180, false, 1, 180)}) {
    ToolBench bench;
    SceneryObject& scenery = AddScenery(bench.map, 0, 0, 1);
    bench.Click(0, 0);
    bench.Press(100, 0);
    scenery.scaleX = scaleX;
    bench.state.shiftDown = shift;
    bench.TakeEvents();
    bench.Move(static_cast<float>(50 * std::cos(mouse * M_PI / 180)),
               static_cast<float>(-50 * std::sin(mouse * M_PI / 180)));
    EXPECT_NEAR(scenery.rotation, rotation * M_PI / 180, 1e-5) << mouse;
    EXPECT_THAT(bench.TakeEvents(), testing::Not(testing::Contains("RefreshInfoPanel")));
    bench.Release();
    EXPECT_FALSE(bench.selection.rotating);
    EXPECT_THAT(bench.Steps(), ElementsAre("Rotate"));
  }
}

TEST_F(EditToolTest, SizeScalesByTheTypesOwnSize) {
  using Row = std::tuple<std::uint8_t, float, ScreenPoint, float, float>;
  for (const auto& [type, rotation, mouse, scaleX, scaleY] :
       {Row(1, 0, {200, 5}, 2, 0.5f), Row(5, 0, {200, 5.5f}, 4, 0.5f),
        Row(1, 0, {-150, -30}, -1.5f, -3), Row(1, 1.5707964f, {5, -200}, 2, 0.5f),
        Row(1, 0.3f, {2, 1}, 0.016151538f, 0.15463767f)}) {
    ToolBench bench;
    SceneryObject& scenery = AddScenery(bench.map, 0, 0, type);
    bench.Click(0, 0);
    bench.Press(type == 5 ? 50 : 100, type == 5 ? 11 : 10);
    scenery.width = scenery.height = 7;  // never read again, never written
    scenery.rotation = rotation;
    bench.Move(mouse.x, mouse.y);
    EXPECT_NEAR(scenery.scaleX, scaleX, 1e-5);
    EXPECT_NEAR(scenery.scaleY, scaleY, 1e-5);
    EXPECT_EQ(scenery.width, 7);
    EXPECT_EQ(scenery.rotation, rotation);
    EXPECT_THAT(bench.Steps(), ElementsAre("Size"));
  }
  SceneryObject& unknown = PickScenery(200);  // no size: both handles lie on its place
  Press(10, 20);
  selection.rotating = false;
  selection.sizing = true;
  Move(50, 50);
  EXPECT_EQ(unknown.scaleX, 1) << "there is nothing to scale by";
}

TEST_F(EditToolTest, ThePointerTellsWhatAPressWouldDo) {
  PickScenery(1);  // box 8 to 12 and 18 to 22, handles at 110.5, 20.5 and 110.5, 30.5
  const auto shapeAt = [this](float x, float y) {
    display.pointer = PointerShape::kDefault;
    Move(x, y);
    return display.pointer;
  };
  EXPECT_EQ(shapeAt(10, 20), PointerShape::kMove);
  EXPECT_EQ(shapeAt(12, 20), PointerShape::kDefault);
  EXPECT_EQ(shapeAt(10, 18), PointerShape::kDefault);
  EXPECT_EQ(shapeAt(110, 20), PointerShape::kCross);
  EXPECT_EQ(shapeAt(110, 30), PointerShape::kSizeDiagonal);
  TakeEvents();
  Move(50, 50);
  EXPECT_THAT(TakeEvents(), ElementsAre("SetPointer 0")) << "a mere move redraws nothing";
  map.sceneries[0].type = 5;  // 50 x 11
  EXPECT_EQ(shapeAt(60, 20), PointerShape::kDefault);
  EXPECT_EQ(shapeAt(60, 31), PointerShape::kSizeDiagonal);
  Press(10, 20);
  EXPECT_EQ(shapeAt(11, 20), PointerShape::kDefault) << "the button is held";
  Release();
  Click(300, 300);
  TakeEvents();
  Move(10, 20);
  EXPECT_THAT(TakeEvents(), IsEmpty()) << "without a selection nothing is told";
}

TEST_F(EditToolTest, EscapeTakesADragBack) {
  using Row = std::tuple<ScreenPoint, ScreenPoint, std::string, std::string>;
  for (const bool hasMovedBefore : {false, true}) {
    for (const auto& [from, to, listed, step] :
         {Row({10, 20}, {40, 50}, "o0", hasMovedBefore ? "" : "Move"),
          Row({110, 20}, {50, 90}, "o0", "Rotate"), Row({110, 30}, {90, 90}, "o0", "Size"),
          Row({190, 190}, {210, 210}, "s0", ""), Row({190, 190}, {190, 190}, "", "")}) {
      ToolBench bench;
      AddScenery(bench.map, 10.5f, 19.5f, 1);
      AddSpawn(bench.map, 200, 200, 0);
      bench.Click(10, 19);
      if (hasMovedBefore) bench.Drag(10, 19, 10, 20);
      const std::vector<std::string> steps = bench.Steps();
      const DocumentState before = StateOf(bench.map);
      const SelectionBox box = bench.selection.box;

      bench.Press(from.x, from.y);
      bench.Move(to.x, to.y);
      EXPECT_EQ(bench.Listed(), listed);
      std::vector<std::string> during = steps;
      if (!step.empty()) during.push_back(step);
      EXPECT_EQ(bench.Steps(), during);
      bench.TakeEvents();
      CancelGesture(bench.editing);
      EXPECT_THAT(bench.TakeEvents(), ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
      // The button is still down; neither moving nor letting go does anything.
      bench.Move(to.x + 50, to.y + 50);
      bench.Release();
      CancelGesture(bench.editing);
      EXPECT_EQ(StateOf(bench.map), before) << from.x;
      EXPECT_EQ(bench.Listed(), "o0");
      EXPECT_EQ(bench.selection.box, box);
      EXPECT_EQ(bench.Steps(), steps);
      EXPECT_THAT(bench.TakeEvents(), Each(testing::StartsWith("SetPointer")));
    }
  }
}

TEST_F(EditToolTest, AZoomInTheMiddleOfADragFlingsNothing) {
  PickCollider();
  Press(100, 100);
  Move(110, 100);
  state.view.zoom = 4;
  ForgetHover(editing);
  MoveMouse(editing, {.x = state.view.lastMouseX + 4, .y = state.view.lastMouseY});
  EXPECT_EQ(map.colliders[0].x, 111);
  EXPECT_EQ(map.colliders[0].y, 100);
  EXPECT_EQ(Listed(), "c0");
}

}  // namespace
}  // namespace vesmora
