#include "tools/move_selection.h"

#include <gmock/gmock.h>

#include <limits>
#include <tuple>

#include "document/geometry.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/angles.h"
#include "tools/property_text.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MoveSelectionTest : public testing::Test, protected ToolBench {};

TEST_F(MoveSelectionTest, MovesWhatIsListedAndNothingElse) {
  for (int i = 0; i < 2; ++i) {
    AddTriangle(map, {{{1, 2}, {3, 4}, {5, 6}}});
    AddSpawn(map, 10, 10, 0);
    AddScenery(map, 1.5f, 2.5f, 1);
    AddCollider(map, 3, 4, 5);
    AddWaypoint(map, 20, 20, 1, {1, 2});
  }
  selection.vertices.Add({0, 1});
  selection.spawns.Add(1);
  selection.sceneries.Add(1);
  selection.colliders.Add(1);
  selection.waypoints.Add(0);
  selection.box = {0, 50, 1, 60};
  const DocumentState before = StateOf(map);
  auto expected = std::make_unique<MapDocument>(map);
  MoveSelection(editing, 0.25f, -8);
  EXPECT_EQ(BeforeNewestStep(), before);
  const auto place = [](auto& record, auto x, auto y) {
    record.x = x;
    record.y = y;
  };
  place(expected->polygons[0].vertices[1], 3.25f, -4.0f);
  place(expected->spawns[1], 2624, 512);
  place(expected->sceneries[1], 1.75f, -5.5f);
  place(expected->colliders[1], 3.25f, -4.0f);
  place(expected->waypoints[0], 5184, 3072);
  EXPECT_EQ(StateOf(map), StateOf(*expected));
  EXPECT_EQ(selection.box, (SelectionBox{0.25f, 50.25f, -7, 52}));
  EXPECT_THAT(events, IsEmpty());
  MoveSelection(editing, 1, 1);
  EXPECT_THAT(Steps(), ElementsAre("Move"));
}

TEST_F(MoveSelectionTest, FixedPointPlacesRoundHalvesToEven) {
  constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();
  selection.moveSnapshotTaken = true;  // a snapshot would put waypoints on whole units
  using Row = std::tuple<std::int32_t, float, std::int32_t>;
  for (const auto& [x, step, moved] :
       {Row(2560, -0.1f, 2534), Row(2560, 1.0f / 512, 2560), Row(2561, 1.0f / 512, 2562),
        Row(-2561, -1.0f / 512, -2562), Row(kHighest - 5, 10, kHighest),
        Row(16777217, 1, 16777473)}) {
    map = {};
    SpawnPoint& spawn = AddSpawn(map, 0, 0, 0);
    Waypoint& waypoint = AddWaypoint(map, 0, 0, 1);
    spawn.x = spawn.y = waypoint.x = waypoint.y = x;
    SelectEverything(selection, map);
    MoveSelection(editing, step, step);
    EXPECT_THAT((std::array{spawn.x, spawn.y, waypoint.x, waypoint.y}), testing::Each(moved));
  }
}

TEST_F(MoveSelectionTest, TextureFollowsOnlyWhereThereIsOne) {
  using Row = std::tuple<float, float, bool, float, float>;
  for (const auto& [u, v, noCorrection, movedU, movedV] :
       {Row(0.5f, 0.25f, false, 0.6f, 0.35f), Row(0, 0.5f, false, 0, 0.5f),
        Row(0.5f, 0, false, 0.5f, 0), Row(0.5f, 0.25f, true, 0.5f, 0.25f),
        Row(-0.1f, 0.5f, false, 0, 0.6f)}) {
    map = {};
    PolygonVertex& corner = AddTriangle(map, {}).vertices[2];
    corner.u = u;
    corner.v = v;
    SelectEverything(selection, map);
    state.tool.next.noTextureCorrection = noCorrection;
    MoveSelection(editing, 16, 12);
    EXPECT_NEAR(corner.u, movedU, 1e-6);
    EXPECT_NEAR(corner.v, movedV, 1e-6);
    EXPECT_EQ(corner.x, 16);
  }
}

TEST_F(MoveSelectionTest, CentringPutsTheBoxInTheMiddleOfTheView) {
  using Row = std::tuple<float, float, float, SelectionBox, float, float>;
  for (const auto& [zoom, centerX, centerY, box, left, top] :
       {Row(1, 0, 0, {10.5f, 30.5f, 5, 15}, -10, 20),
        Row(2, 0, 0, {10.5f, 30.5f, 5, 15}, -10, 8),  // 7.5
        Row(0.5f, 0, 0, {10.5f, 30.5f, 5, 15}, -10, 45),
        Row(4, 0, 0, {10.5f, 30.5f, 5, 15}, -10, 1),
        Row(1, 100.25f, -7, {300, 321, -40, -20}, 90, 8),  // 89.75
        Row(1, 0, 0, {300, 321, 0, 1}, -10, 24)}) {        // -10.5 and 24.5
    map = {};
    AddCollider(map, box.left + 1, box.top + 2, 5);
    AddSpawn(map, box.left, box.top, 0);
    SelectEverything(selection, map);
    selection.box = box;
    selection.moveSnapshotTaken = false;
    state.view.zoom = zoom;
    state.view.centerX = centerX;
    state.view.centerY = centerY;
    CenterSelection(editing);
    EXPECT_EQ(selection.box,
              (SelectionBox{left, left + box.right - box.left, top, top + box.bottom - box.top}));
    EXPECT_EQ(map.colliders[0].x, left + 1);
    EXPECT_EQ(map.colliders[0].y, top + 2);
    EXPECT_EQ(map.spawns[0].x, static_cast<std::int32_t>(left) * 256);
    EXPECT_EQ(Steps().back(), "Move");
  }
}

TEST(SnapAngle45Test, GivesTheNearestEighthOfATurn) {
  // Thresholds in eighths of a turn, and what lies below and above each.
  for (int eighth = -2; eighth <= 5; ++eighth) {
    const double threshold = eighth + 0.5;
    const auto snapped = [](double angle) {
      return SnapAngle45(static_cast<float>(angle * M_PI / 4)) / M_PI * 4;
    };
    EXPECT_NEAR(snapped(threshold - 1e-4), eighth, 1e-6);
    EXPECT_NEAR(snapped(threshold + 1e-4), eighth + 1, 1e-6);
  }
  EXPECT_EQ(SnapAngle45(-7), -kPi / 2);
  EXPECT_NEAR(SnapAngle45(5.1f), 3 * kPi / 2, 1e-6);
  EXPECT_EQ(SnapAngle45(5.2f), 5.2f) << "from 13/8 pi on they stay";
  EXPECT_EQ(SnapAngle45(kPi / 8), kPi / 4) << "a tie goes to the larger one";
  EXPECT_EQ(SnapAngle45(-kPi / 8), 0);
}

TEST(PropertyTextTest, NumbersAndVisibilityReadAndShow) {
  for (const auto& [text, number] : {std::pair("20.5", 20.5),
                                     {"  7 px", 7},
                                     {"-3", -3},
                                     {"+4", 4},
                                     {".5", 0.5},
                                     {"12,5", 12},
                                     {"1e2", 100},
                                     {"", 0},
                                     {"   ", 0},
                                     {"px 7", 0},
                                     {"inf", 0},
                                     {"nan", 0}}) {
    EXPECT_EQ(LeadingNumber(text), number) << text;
  }
  for (const auto& [number, text] :
       {std::pair(12.0f, "12"), {20.5f, "20.5"}, {0.1f, "0.1"}, {-1.0f / 3, "-0.33333334"}}) {
    EXPECT_EQ(NumberText(number), text);
  }
  for (const auto& [text, level] : {std::pair("100%", 255),
                                    {"75%", 191},
                                    {"50%", 128},
                                    {"25%", 64},
                                    {"40%", 102},
                                    {"30%", 76},
                                    {"10%", 26},
                                    {"", 255},
                                    {"0%", 0},
                                    {"500%", 255},
                                    {"%", 0},
                                    {"abc", 0}}) {
    EXPECT_EQ(VisibilityLevel(text), level) << text;
  }
  EXPECT_EQ(VisibilityText(191), "75%");
  EXPECT_EQ(VisibilityText(1), "0%");
}

}  // namespace
}  // namespace vesmora
