#include "tools/tool_change.h"

#include <gmock/gmock.h>

#include <tuple>

#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kAddTools = {ToolMode::kAddPolygon, ToolMode::kAddSpawn, ToolMode::kAddScenery,
                                  ToolMode::kAddCollider, ToolMode::kAddWaypoint};

class ToolChangeTest : public testing::Test, protected ToolBench {};

TEST_F(ToolChangeTest, AnAddToolStartsCleanAndShowsItsKind) {
  for (const ToolMode tool : kAddTools) {
    AddCollider(map, 0, 0, 12);
    ChangeTool(editing, ToolMode::kEdit);
    SelectEverything(selection, map);
    selection.moveSnapshotTaken = selection.buttonHeld = true;
    selection.connectionAnchor = 3;
    state.show.showFlags.fill(0);
    state.tool.value = 9;
    TakeEvents();
    ChangeTool(editing, tool);
    EXPECT_EQ(map.toolIndex, tool);
    std::array<std::int16_t, 7> shown{};
    shown[static_cast<std::size_t>(tool) - 1] = 1;
    EXPECT_EQ(state.show.showFlags, shown);
    EXPECT_TRUE(selection.Empty());
    EXPECT_EQ(selection.box, SelectionBox{});
    EXPECT_EQ(selection.connectionAnchor, kNoIndex);
    EXPECT_FALSE(selection.moveSnapshotTaken || selection.buttonHeld);
    EXPECT_THAT(TakeEvents(),
                ElementsAre("SetPointer 0", "SetPointer 2", "RefreshInfoPanel", "RedrawMap"));

    SelectEverything(selection, map);
    const SelectionBox box = selection.box;
    selection.connectionAnchor = 3;
    ChangeTool(editing, ToolMode::kEdit);
    EXPECT_EQ(state.show.showFlags, shown) << "what was turned on stays on";
    EXPECT_EQ(selection.colliders.Count(), map.lastCollider + 1) << "Edit keeps the selection";
    EXPECT_EQ(selection.box, box);
    EXPECT_EQ(selection.connectionAnchor, kNoIndex);
    EXPECT_EQ(state.tool.value, 0);
    EXPECT_THAT(TakeEvents(), ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
  }
  EXPECT_THAT(Steps(), IsEmpty());
}

TEST_F(ToolChangeTest, OffersWhatTheLastObjectHas) {
  NextObject& next = state.tool.next;
  const auto valueIn = [this](ToolMode tool) {
    ChangeTool(editing, tool);
    return state.tool.value;
  };
  next = {.vertexColor = {1, 2, 3}, .visibility = "10%", .colliderSize = "99"};
  EXPECT_EQ(valueIn(ToolMode::kAddPolygon), 0);
  EXPECT_EQ(next.vertexColor, (Rgb{255, 255, 255}));
  EXPECT_EQ(valueIn(ToolMode::kAddSpawn), 0);
  EXPECT_EQ(valueIn(ToolMode::kAddScenery), 1);
  EXPECT_EQ(next.visibility, "100%");
  EXPECT_EQ(valueIn(ToolMode::kAddCollider), 12);
  EXPECT_EQ(next.colliderSize, "12");
  EXPECT_EQ(valueIn(ToolMode::kAddWaypoint), 1);

  for (int i = 0; i < 2; ++i) {  // the second of each counts
    auto& vertices = AddTriangle(map, {}).vertices;
    const auto color = static_cast<std::uint8_t>(100 * i);
    vertices[0].color = {9, 9, 9, 9};
    vertices[2].color = {.blue = color, .green = 5, .red = 6, .alpha = 0};
    AddSpawn(map, 0, 0, 2);
    AddScenery(map, 0, 0, static_cast<std::uint8_t>(5 + i)).level =
        static_cast<std::uint8_t>(191 * i);
    AddCollider(map, 0, 0, 19.5f + static_cast<float>(i));
    AddWaypoint(map, 0, 0, 1 + 7 * i).botSettings = {1, static_cast<std::uint8_t>(i), 0, 0, 1};
  }
  EXPECT_EQ(valueIn(ToolMode::kAddPolygon), 0);
  EXPECT_EQ(next.vertexColor, (Rgb{6, 5, 100}));
  EXPECT_EQ(valueIn(ToolMode::kAddSpawn), 0) << "always the normal team";
  EXPECT_EQ(valueIn(ToolMode::kAddScenery), 6);
  EXPECT_EQ(next.visibility, "75%");
  EXPECT_EQ(valueIn(ToolMode::kAddCollider), 20);
  EXPECT_EQ(next.colliderSize, "20.5");
  EXPECT_EQ(valueIn(ToolMode::kAddWaypoint), 2) << "any path but the first";
  EXPECT_EQ(next.botSettings, (std::array<std::uint8_t, 5>{1, 1, 0, 0, 1}));
  map.waypoints[1].path = 1;
  EXPECT_EQ(valueIn(ToolMode::kAddWaypoint), 1);
}

TEST_F(ToolChangeTest, AHalfBuiltTriangleGoesWithItsTool) {
  AddTriangle(map, {});
  for (const int corners : {0, 1, 2}) {
    for (const ToolMode tool : {ToolMode::kEdit, ToolMode::kAddPolygon, ToolMode::kAddSpawn}) {
      map.lastPolygon = 0;
      ClearHistory(state.journal);
      ChangeTool(editing, ToolMode::kAddPolygon);
      for (int i = 0; i < corners; ++i) Click(100 + 10.0f * static_cast<float>(i), 100);
      ChangeTool(editing, tool);
      const bool stays = corners > 0 && tool == ToolMode::kAddPolygon;
      EXPECT_EQ(map.lastPolygon, stays ? 1 : 0) << corners;
      EXPECT_EQ(state.tool.value, 0);
      EXPECT_FALSE(IsConstructing(state));
      EXPECT_EQ(Steps().size(), corners > 0 ? 1U : 0U) << "its own step, no other";
    }
  }
}

TEST_F(ToolChangeTest, EscapeNeverReachesBackBehindAToolChange) {
  // Each begins something that the change of tool ends.
  const auto corner = [this] {
    ChangeTool(editing, ToolMode::kAddPolygon);
    Click(100, 100);
  };
  const auto liana = [this] {
    ChangeTool(editing, ToolMode::kAddScenery);
    state.tool.value = 5;
    Click(100, 100);
  };
  const auto drag = [this] {
    ChangeTool(editing, ToolMode::kEdit);
    AddCollider(map, 0, 0, 5);
    Click(0, 0);
    Press(0, 0);
    Move(10, 10);
  };
  const std::vector<std::function<void()>> beginnings = {corner, liana, drag};
  for (std::size_t i = 0; i < beginnings.size(); ++i) {
    SCOPED_TRACE(i);
    beginnings[i]();
    ChangeTool(editing, ToolMode::kAddSpawn);
    Click(50, 50);
    ClearHistory(state.journal);  // as Save As does
    const DocumentState before = StateOf(map);
    CancelGesture(editing);
    EXPECT_EQ(StateOf(map), before);
    EXPECT_EQ(state.journal.undoAvailable, -1);
    ChangeTool(editing, ToolMode::kEdit);
    Press(300, 300);
    EXPECT_FALSE(selection.moving) << "nothing is left of the drag";
    Release();
    map = {};
    state.gesture.End();
    ResetDragState(selection);
  }
}

TEST_F(ToolChangeTest, TheRightButtonPansInEveryTool) {
  for (int tool = 0; tool < kToolCount; ++tool) {
    map = {};
    ChangeTool(editing, static_cast<ToolMode>(tool));
    state.view.zoom = 2;
    state.view.centerX = state.view.centerY = 0;
    const DocumentState before = StateOf(map);
    PressMouse(editing, {MouseButton::kOther, 100, 100});
    PressMouse(editing, {MouseButton::kRight, 100, 100});
    TakeEvents();
    MoveMouse(editing, {MouseButton::kNone, 130, 90});
    EXPECT_THAT(TakeEvents(), ElementsAre("RedrawMap")) << "the tool hears nothing of it";
    EXPECT_EQ(state.view.centerX, -15);
    EXPECT_EQ(state.view.centerY, 5);
    EXPECT_EQ(state.tool.mouseX, -135);
    ReleaseMouse(editing, {MouseButton::kLeft, 130, 90});
    EXPECT_TRUE(state.view.panning);
    TakeEvents();
    ReleaseMouse(editing, {MouseButton::kRight, 130, 90});
    EXPECT_FALSE(state.view.panning);
    EXPECT_THAT(TakeEvents(), IsEmpty());
    EXPECT_EQ(StateOf(map), before);
    MoveMouse(editing, {MouseButton::kNone, 200, 90});
    EXPECT_EQ(state.view.centerX, -15);
  }
}

}  // namespace
}  // namespace vesmora
