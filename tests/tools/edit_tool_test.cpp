// What is picked, and what moving it changes.
#include <gmock/gmock.h>

#include "support/bench.h"
#include "support/map_builder.h"
#include "tools/move_selection.h"
#include "tools/picking.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SelectionBox kEverywhere{.left = -99, .right = 99, .top = -99, .bottom = 99};

class PickingTest : public testing::Test, protected Bench {
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
      Bench bench;
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

class MoveSelectionTest : public testing::Test, protected Bench {};

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

}  // namespace
}  // namespace vesmora
