#include "tools/picking.h"

#include <gmock/gmock.h>

#include <tuple>

#include "document/numbers.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

constexpr SelectionKind kAll = SelectionKind::kAll;
constexpr SelectionKind kFirstVertex = SelectionKind::kFirstVertex;
constexpr SelectionKind kFirstWaypoint = SelectionKind::kFirstWaypoint;
constexpr SelectionBox kEverywhere{.left = -99, .right = 99, .top = -99, .bottom = 99};

class PickingTest : public testing::Test, protected ToolBench {
 protected:
  PickingTest() {
    AddTriangle(map, {{{0, 0}, {10, 0}, {0, 10}}});
    AddTriangle(map, {{{10, 0}, {20, 0}, {10, 10}}});
    AddSpawn(map, 5.5f, 5, 0);
    AddScenery(map, 30.5f, 30.5f, 1);
    AddCollider(map, 40, 40, 25);
    AddWaypoint(map, 50, 50, 1);
    AddWaypoint(map, 50.5f, 50, 2);
    AddWaypoint(map, 52, 50, 1);
  }

  std::string In(const SelectionBox& box, SelectionKind kind = kAll) {
    SelectInBox(editing, box, false, kind);
    return Listed();
  }
};

TEST_F(PickingTest, ABoxHoldsThePointsOnItsEdges) {
  using Row = std::tuple<SelectionBox, SelectionKind, std::string>;
  for (const auto& [box, kind, expected] :
       {Row({10, 20, 0, 0}, kAll, "v0.1 v1.0 v1.1"), Row({1, 9, 1, 4}, kAll, ""),
        Row(kEverywhere, kAll, "v0.0 v0.1 v0.2 v1.0 v1.1 v1.2 s0 o0 c0 w0 w1 w2"),
        Row({5.5f, 5.5f, 5, 5}, kAll, "s0"), Row({5, 5.25f, 5, 5}, kAll, ""),
        Row({30, 30, 30, 30}, kAll, "o0"), Row({30.25f, 31, 30, 31}, kAll, ""),
        Row({40, 40, 40, 40}, kAll, "c0"), Row({41, 52, 39, 41}, kAll, ""),
        Row({50, 50.25f, 50, 50}, kAll, "w0"), Row({50.5f, 51, 50, 50}, kAll, "w1"),
        Row(kEverywhere, kFirstVertex, "v0.0"), Row({9, 30, -1, 20}, kFirstVertex, "v0.1"),
        Row({30, 99, 30, 99}, kFirstVertex, ""), Row(kEverywhere, kFirstWaypoint, "w0"),
        Row({51, 60, 40, 60}, kFirstWaypoint, "w2"), Row({0, 40, 0, 40}, kFirstWaypoint, "")}) {
    EXPECT_EQ(In(box, kind), expected) << box.left << " " << static_cast<int>(kind);
  }
}

TEST_F(PickingTest, WhatIsHiddenIsNotFound) {
  const std::array<std::string, 5> kinds = {"v0.0 v0.1 v0.2 v1.0 v1.1 v1.2", " s0", " o0", " c0",
                                            " w0 w1 w2"};
  for (std::size_t hidden = 0; hidden < kinds.size(); ++hidden) {
    state.show = {};
    state.show.showFlags[hidden] = 0;
    std::string left;
    for (std::size_t i = 0; i < kinds.size(); ++i) left += i == hidden ? "" : kinds[i];
    EXPECT_EQ(In(kEverywhere), left.substr(hidden == 0 ? 1 : 0));
    EXPECT_EQ(In(kEverywhere, kFirstVertex), hidden == 0 ? "" : "v0.0");
    EXPECT_EQ(In(kEverywhere, kFirstWaypoint), hidden == 4 ? "" : "w0");
  }
  state.show = {};
  for (const auto& [filter, all, first] :
       {std::tuple(0, "w0 w1 w2", "w0"), {1, "w0 w2", "w0"}, {2, "w1", "w1"}}) {
    state.show.pathFilter = static_cast<std::int16_t>(filter);
    EXPECT_EQ(In({45, 99, 45, 99}), all);
    EXPECT_EQ(In(kEverywhere, kFirstWaypoint), first);
  }
}

TEST_F(PickingTest, OnlyTheEdgeThatChangesSidesIsRounded) {
  using Row = std::tuple<SelectionBox, SelectionBox>;
  for (const auto& [drawn, ordered] :
       {Row({0.3f, 10.25f, 0.7f, 9.75f}, {0.3f, 10.25f, 0.7f, 9.75f}),
        Row({10.25f, 0.3f, 0, 5}, {0.3f, 10, 0, 5}), Row({10.75f, 0.3f, 0, 5}, {0.3f, 11, 0, 5}),
        Row({0, 5, 10.5f, -1.5f}, {0, 5, -1.5f, 10}), Row({0, 5, 11.5f, 0}, {0, 5, 0, 12}),
        Row({40000, 0, -7, -40000}, {0, 32767, -40000, -7})}) {
    EXPECT_EQ(Normalised(drawn), ordered) << drawn.left << " " << drawn.top;
  }
}

TEST_F(PickingTest, OnlyAnEmptyFinishedPickUnsetsTheBox) {
  constexpr SelectionBox kNowhere{.left = 80, .right = 90, .top = 80, .bottom = 90};
  using Row = std::tuple<SelectionBox, bool, bool, bool>;
  for (const auto& [box, keep, held, unset] :
       {Row(kNowhere, false, false, true), Row(kNowhere, true, false, false),
        Row(kNowhere, false, true, false), Row(kEverywhere, false, false, false)}) {
    selection.box = box;
    selection.buttonHeld = held;
    TakeEvents();
    SelectInBox(editing, box, keep, kAll);
    EXPECT_EQ(selection.box, unset ? SelectionBox{} : box);
    EXPECT_THAT(TakeEvents(), ElementsAre("RefreshInfoPanel"));
  }
}

TEST_F(PickingTest, AnUnfinishedTriangleIsNotFound) {
  map.toolIndex = ToolMode::kAddPolygon;
  state.tool.value = 1;
  EXPECT_EQ(In({10, 20, 0, 10}, kFirstVertex), "v0.1");
  EXPECT_EQ(In({11, 20, 0, 10}, kFirstVertex), "");
  map.toolIndex = ToolMode::kAddSpawn;  // there the value is a team
  EXPECT_EQ(In({11, 20, 0, 10}, kFirstVertex), "v1.1");
}

TEST_F(PickingTest, EveryCornerOfAFullMapIsListed) {
  while (map.lastPolygon < kPolygonCapacity - 1) AddTriangle(map, {});
  selection.buttonHeld = true;
  In(kEverywhere);
  EXPECT_EQ(selection.vertices.Count(), 1200);
  EXPECT_EQ(selection.vertices.Items().back(), (VertexReference{399, 2}));
  EXPECT_TRUE(selection.buttonHeld);
  EXPECT_EQ(selection.TotalCounter(), 1200 + 6 - 1);
}

TEST_F(PickingTest, AClickLooksInGrowingSquares) {
  const std::array<float, 8> reaches = {0, 2, 5, 9, 14, 20, 27, 35};
  for (const auto& [zoom, count] :
       {std::pair(4.0f, 1U), {2.0f, 2U}, {1.0f, 4U}, {0.5f, 6U}, {0.25f, 7U}}) {
    ToolBench bench;
    bench.state.view.zoom = zoom;
    Collider& collider = AddCollider(bench.map, 0, 0, 1);
    for (std::size_t i = 1; i <= count + 1U; ++i) {  // just beside the square before
      const float distance = reaches[i - 1] + (i == 1 ? 0 : 0.5f);
      collider.x = 100 - distance;
      collider.y = 100 + distance;
      bench.selection = {};
      bench.Click(100, 100);
      const float reach = i <= count ? reaches[i] : -1;
      EXPECT_EQ(bench.Listed(), reach > 0 ? "c0" : "") << zoom << " " << distance;
      EXPECT_EQ(bench.selection.box,
                reach > 0 ? (SelectionBox{100 - reach, 100 + reach, 100 - reach, 100 + reach})
                          : SelectionBox{});
      if (reach <= 0) continue;
      collider.x = 100 - reach;  // on its edge
      bench.selection = {};
      bench.Click(100, 100);
      EXPECT_EQ(bench.selection.box.right, 100 + reach);
    }
  }
}

TEST_F(PickingTest, AClickTakesAllThatTheFirstFilledSquareHolds) {
  AddCollider(map, 100, 104, 9);
  AddSpawn(map, 95, 105, 0);
  AddSpawn(map, 94.75f, 100, 0);  // would be in the next square
  for (int i = 0; i < 2; ++i) AddTriangle(map, {{{105, 95}, {200, 1}, {1, 200}}});
  state.shiftDown = state.ctrlDown = true;
  Click(100, 100);
  EXPECT_EQ(Listed(), "v2.0 v3.0 s1 c1");
}

TEST_F(PickingTest, HandlesLieAtTheFarCornersOfTheSceneryType) {
  using Row = std::tuple<float, float, float, ScreenPoint, ScreenPoint>;
  const float quarter = 1.5707964f;
  for (const auto& [rotation, scaleX, scaleY, rotate, size] :
       {Row(0, 1, 1, {110, 20}, {110, 30}), Row(0, -0.5f, 2, {-40, 20}, {-40, 40}),
        Row(quarter, 1, 1, {10, -80}, {20, -80}), Row(-quarter, 2, -1, {10, 220}, {20, 220})}) {
    SceneryObject scenery = AddScenery(map, 10.001f, 20.001f, 1);  // 100 x 10
    scenery.rotation = rotation;
    scenery.scaleX = scaleX;
    scenery.scaleY = scaleY;
    scenery.width = scenery.height = 1;  // never read again
    for (const auto& [off, isOn] :
         {std::pair(-4, false), {-3, false}, {-2, true}, {3, true}, {4, false}}) {
      const auto hits = [&](SceneryHandle handle, ScreenPoint at, int dx, int dy) {
        return HandleHitTest(handle, scenery, RoundToInt16(at.x + static_cast<float>(dx)),
                             RoundToInt16(at.y + static_cast<float>(dy)));
      };
      EXPECT_EQ(hits(SceneryHandle::kRotate, rotate, off, 0), isOn) << rotation << " " << off;
      EXPECT_EQ(hits(SceneryHandle::kRotate, rotate, 0, off), isOn) << rotation << " " << off;
      EXPECT_EQ(hits(SceneryHandle::kSize, size, off, 0), isOn) << rotation << " " << off;
      EXPECT_EQ(hits(SceneryHandle::kSize, size, 0, off), isOn) << rotation << " " << off;
    }
  }
  const SceneryObject exact = AddScenery(map, 10, 20, 1);
  EXPECT_TRUE(HandleHitTest(SceneryHandle::kRotate, exact, 107, 17)) << "both edges belong to it";
  EXPECT_TRUE(HandleHitTest(SceneryHandle::kRotate, exact, 113, 23));
}

}  // namespace
}  // namespace vesmora
