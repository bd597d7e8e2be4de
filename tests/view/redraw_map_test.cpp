#include "view/redraw_map.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <tuple>

#include "support/map_builder.h"
#include "support/recording_canvas.h"
#include "view/palette.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

/// At 100% the view is set so that window and world coordinates are the same.
class RedrawMapTest : public testing::Test {
 protected:
  void Show(std::initializer_list<std::size_t> flags) {
    show_.showFlags.fill(0);
    for (const std::size_t flag : flags) show_.showFlags[flag] = 1;
  }
  void Use(ToolMode tool) { document_.toolIndex = tool; }
  /// Keeps world (0, 0) at window (0, 0) at any size of the window.
  void SetWindow(int width, int height) {
    view_.area = {width, height, 0, 0, 0};
    view_.centerX = static_cast<float>(width) / 2 - 0.5f;
    view_.centerY = static_cast<float>(height) / 2 + 0.5f;
  }
  Lines Draw() {
    RecordingCanvas canvas;
    RedrawMap({document_, selection_, view_, show_, tool_}, canvas);
    EXPECT_EQ(canvas.primitives.at(0).kind, Primitive::Kind::kClear);
    Lines lines = canvas.Lines();
    EXPECT_EQ(canvas.primitives.size(), lines.size() + 1) << "cleared once";
    return lines;
  }

  const std::unique_ptr<MapDocument> holder_ = std::make_unique<MapDocument>();
  MapDocument& document_ = *holder_;
  Selection selection_;
  ViewTransform view_{.centerX = 399.5f, .centerY = 300.5f, .area = {1000, 700, 200, 100, 60}};
  ShowOptions show_;
  ToolDrawing tool_;
};

TEST_F(RedrawMapTest, PolygonsAreThreeEdgesInTheirStartCornersColours) {
  Show({0});
  Polygon& polygon = AddTriangle(document_, {{{10, 10}, {50, 10}, {10, 50}}});
  polygon.vertices[0].color = {1, 2, 3, 99};
  polygon.vertices[1].color = {4, 5, 6, 99};
  polygon.vertices[2].color = {0xFE, 0, 0, 99};
  document_.normals[0].edges = {{{0, 1, 0}, {0, -0.0f, 5}, {1, 0, 0}}};
  EXPECT_THAT(Draw(), ElementsAre("line 030201 solid 10,10 50,10", "line 060504 dot 50,10 10,50",
                                  "line 0000fe solid 10,50 10,10"));
}

TEST_F(RedrawMapTest, LinesAndCirclesOutsideTheWindowAreLeftOut) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  Show({0});
  using LineRow = std::tuple<float, float, float, float, bool>;
  for (const auto& [x1, y1, x2, y2, drawn] :
       {LineRow(0, 10, 0, 50, false), LineRow(0, 10, 1, 50, true), LineRow(-9, 10, -1, 50, false),
        LineRow(1000, 10, 1000, 50, false), LineRow(999, 10, 1000, 50, true),
        LineRow(10, 0, 50, 0, false), LineRow(10, 0, 50, 1, true), LineRow(10, 700, 50, 700, false),
        LineRow(10, 699, 50, 700, true), LineRow(-50, -50, 1050, 750, true),
        LineRow(-50, 710, 900, 710, false), LineRow(kNan, 10, kNan, 50, false),
        LineRow(1e30f, -1e30f, 1e30f, 1e30f, false)}) {
    document_.lastPolygon = -1;
    AddTriangle(document_, {{{x1, y1}, {x2, y2}, {x1, y1}}});
    EXPECT_EQ(Draw().size() >= 2, drawn) << x1 << "," << y1;
  }
  Show({1});
  using CircleCase = std::tuple<float, float, bool>;
  for (const auto& [x, y, drawn] :
       {CircleCase(-10, 10, false), CircleCase(-9, 10, true), CircleCase(1010, 10, false),
        CircleCase(1009, 10, true), CircleCase(10, -10, false), CircleCase(10, -9, true),
        CircleCase(10, 710, false), CircleCase(10, 709, true)}) {
    document_.lastSpawn = -1;
    AddSpawn(document_, x, y, 0);
    EXPECT_EQ(Draw().size(), drawn ? 1U : 0U) << x << "," << y;
  }
}

TEST_F(RedrawMapTest, MarksTheCornerUnderConstruction) {
  Show({});
  for (const std::size_t slot : {2U, 399U}) {
    for (std::size_t corner = 0; corner < 3; ++corner) {
      document_.polygons[slot].vertices[corner].x = static_cast<float>(slot + corner);
      document_.polygons[slot].vertices[corner].y = 30;
    }
  }
  using Row = std::tuple<int, int, int>;
  for (const auto& [lastPolygon, placedCorners, x] :
       {Row(1, 0, 2), Row(2, 1, 3), Row(2, 2, 4), Row(398, 0, 399), Row(399, 0, -1),
        Row(399, 2, 401)}) {
    document_.lastPolygon = static_cast<std::int16_t>(lastPolygon);
    tool_.placedCorners = placedCorners;
    Use(ToolMode::kAddPolygon);
    const Lines mark = {"circle ff0000 dash " + std::to_string(x) + ",30 r2"};
    EXPECT_EQ(Draw(), x < 0 ? Lines{} : mark) << lastPolygon << " " << placedCorners;
    Use(ToolMode::kAddSpawn);
    EXPECT_THAT(Draw(), IsEmpty());
  }
  Use(ToolMode::kAddPolygon);
  selection_.vertices.Add({0, 0});
  EXPECT_THAT(Draw(), ElementsAre("circle ff0000 solid 0,0 r2")) << "only the selection's mark";
}

TEST_F(RedrawMapTest, SpawnsByTeamTheFirstFlagsDouble) {
  Show({1});
  for (const int team : {0, 2, 1, 3, 1, 2}) {
    AddSpawn(document_, 20.0f + static_cast<float>(document_.lastSpawn), 30.5f,
             static_cast<std::uint8_t>(team));
  }
  const Lines spawns = {
      "circle 008080 solid 19,30.5 r10", "circle 000080 solid 20,30.5 r10",
      "circle 000080 solid 20,30.5 r5",  "circle 800000 solid 21,30.5 r10",
      "circle 800000 solid 21,30.5 r5",  "circle 800000 solid 23,30.5 r10",
      "circle 000080 solid 24,30.5 r10",
  };
  EXPECT_EQ(Draw(), spawns);
  Use(ToolMode::kAddSpawn);
  document_.lastSpawn = 2;  // the one that follows the mouse lies behind
  document_.spawns[3].team = 1;
  EXPECT_EQ(Draw().back(), "circle 800000 solid 22,30.5 r10");
  while (document_.lastSpawn < 29) AddSpawn(document_, 1, 1, 0);
  EXPECT_EQ(Draw().size(), 32U);
}

TEST_F(RedrawMapTest, SceneriesAreRotatedOutlines) {
  Show({2});
  SceneryObject& scenery = AddScenery(document_, 100.5f, 200.5f, 3);
  scenery.scaleY = 2;
  scenery.width = scenery.height = 999;  // never used
  EXPECT_THAT(Draw(),
              ElementsAre("circle 800080 solid 100,200 r2", "line 800080 solid 100,200 150,200",
                          "line 800080 solid 100,200 100,250", "line 800080 solid 150,200 150,250",
                          "line 800080 solid 100,250 150,250"));
  scenery.rotation = 1.5707964f;
  EXPECT_THAT(Draw(),
              ElementsAre("circle 800080 solid 100,200 r2", "line 800080 solid 100,200 100,150",
                          "line 800080 solid 100,200 150,200", "line 800080 solid 100,150 150,150",
                          "line 800080 solid 150,200 150,150"));
  for (const int type : {22, 255}) {
    scenery.type = static_cast<std::uint8_t>(type);
    EXPECT_THAT(Draw(), ElementsAre("circle 800080 solid 100,200 r2"));
  }
}

TEST_F(RedrawMapTest, AToolsPendingObjectLiesBehindTheLast) {
  Show({2, 3});
  document_.sceneries[0] = {0, 22, {}, 0, 0, 5.5f, 6.5f, 0, 1, 1, 0, {}};
  document_.colliders[0] = {0, {}, 0, 7, 8, 10};
  EXPECT_THAT(Draw(), IsEmpty());
  Use(ToolMode::kAddScenery);
  EXPECT_THAT(Draw(), ElementsAre("circle 800080 solid 5,6 r2"));
  tool_.hasPendingScenery = false;
  EXPECT_THAT(Draw(), IsEmpty());
  Use(ToolMode::kAddCollider);
  EXPECT_THAT(Draw(), ElementsAre("circle 808000 solid 7,8 r5"));

  tool_.hasPendingScenery = true;
  for (SceneryObject& scenery : document_.sceneries) scenery = document_.sceneries[0];
  for (Collider& collider : document_.colliders) collider = document_.colliders[0];
  document_.lastCollider = 126;
  EXPECT_EQ(Draw().size(), 128U);
  document_.lastCollider = 127;
  EXPECT_EQ(Draw().size(), 128U);
  Use(ToolMode::kAddScenery);
  document_.lastScenery = 254;
  EXPECT_EQ(Draw().size(), 255U + 128U);
}

TEST_F(RedrawMapTest, ACollidersSizeIsItsDiameter) {
  Show({3});
  Collider& collider = AddCollider(document_, 399.5f, 300.5f, 0);
  using Row = std::tuple<float, float, const char*>;
  for (const auto& [size, zoom, expected] :
       {Row(25, 0.5f, "r6"), Row(5, 1, "r2"), Row(7, 1, "r4"), Row(7, 4, "r14"),
        Row(1e30f, 1, "r32767"), Row(std::numeric_limits<float>::quiet_NaN(), 1, "r0")}) {
    collider.radius = size;
    view_.zoom = zoom;
    EXPECT_THAT(Draw(), ElementsAre("circle 808000 solid 399.5,300.5 " + std::string(expected)));
  }
}

TEST_F(RedrawMapTest, WaypointsShowTheirPath) {
  Show({4});
  AddWaypoint(document_, 100.5f, 100, 1);
  AddWaypoint(document_, 200, 100, 2);
  AddWaypoint(document_, 300, 100, 3);
  AddWaypoint(document_, 300, 100, 0);
  const Lines first = {"text 0000ff 95.5,93.5 1", "box 0000ff solid 93.5,93 107.5,107"};
  const Lines second = {"text 000080 195,93.5 2", "box 000080 solid 193,93 207,107"};
  EXPECT_THAT(Draw(), ElementsAre(first[0], first[1], second[0], second[1]));
  show_.pathFilter = 1;
  EXPECT_EQ(Draw(), first);
  show_.pathFilter = 2;
  EXPECT_EQ(Draw(), second);
  view_.zoom = 4;
  view_.centerX = 200;
  view_.centerY = 100;
  EXPECT_THAT(Draw(),
              ElementsAre("text 000080 394.5,294 2", "box 000080 solid 371.5,272.5 427.5,328.5"));
}

TEST_F(RedrawMapTest, RoutesPointToTheirTargets) {
  Show({4});
  show_.pathFilter = 1;
  AddWaypoint(document_, 100, 100, 1, {2, 0, 501, -1, 3});
  AddWaypoint(document_, 200, 100, 2, {1}).botSettings = {0, 1, 0, 0, 0};  // hidden, still a target
  AddWaypoint(document_, 100, 4, 2);
  selection_.connectionAnchor = 0;
  tool_.mouseX = 40;
  tool_.mouseY = 100;
  EXPECT_THAT(
      Draw(),
      ElementsAre("text 0000ff 95,93.5 1", "box 0000ff solid 93,93 107,107",
                  "line ff0000 dot 150,100 142.352,106.442",
                  "line ff0000 dot 150,100 142.352,93.558", "line ff0000 dot 100,100 200,100",
                  // The fifth entry starts four units lower.
                  "line 000000 dot 100,54 106.442,61.648", "line 000000 dot 100,54 93.558,61.648",
                  "line 000000 dot 100,104 100,4", "line ff00ff dot 70,100 77.648,93.558",
                  "line ff00ff dot 70,100 77.648,106.442", "line ff00ff dot 100,100 40,100"));
  tool_.mouseX = -110;  // only the barbs' tips reach into the window
  EXPECT_EQ(Draw().at(8), "line ff00ff dot -5,100 2.648,93.558");
  selection_.connectionAnchor = 1;  // the filter hides what starts there, too
  EXPECT_EQ(Draw().size(), 8U);
}

TEST_F(RedrawMapTest, RoutesTakeTheTargetsColour) {
  Show({4});
  AddWaypoint(document_, 100, 100, 1, {2});
  AddWaypoint(document_, 200, 100, 1).path = 0;
  document_.waypoints[0].botSettings = {1, 1, 1, 1, 1};
  using Settings = std::array<std::uint8_t, 5>;
  using Row = std::tuple<Settings, const char*>;
  for (const auto& [settings, color] :
       {Row({0, 0, 0, 0, 0}, "000000"), Row({1, 0, 0, 0, 0}, "00ff00"),
        Row({1, 1, 0, 0, 0}, "ff0000"), Row({1, 1, 1, 0, 0}, "ffff00"),
        Row({1, 0, 1, 1, 0}, "00ffff"), Row({0, 0, 0, 1, 1}, "808080"),
        Row({2, 255, 0, 0, 0}, "000000")}) {
    document_.waypoints[1].botSettings = settings;
    EXPECT_EQ(Draw().back(), "line " + std::string(color) + " dot 100,100 200,100");
  }
}

TEST_F(RedrawMapTest, ConnectionCountsAreCutAndNoSlotBehindTheTableIsRead) {
  Show({4});
  Waypoint& waypoint = AddWaypoint(document_, 100, 100, 1);
  AddWaypoint(document_, 200, 100, 0);  // its first bytes would make a 21st connection
  waypoint.connections.fill(2);
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  using Row = std::tuple<std::int32_t, std::int32_t, std::size_t>;
  for (const auto& [count, after, routes] :
       {Row(20, 20, 20), Row(21, 21, 20), Row(22, 20, 20), Row(25, 20, 20), Row(kMax, 20, 20),
        Row(1, 1, 1), Row(0, 0, 0), Row(-1, -1, 0), Row(kMin, kMin, 0)}) {
    waypoint.connectionCount = count;
    EXPECT_EQ(Draw().size(), 2 + 3 * routes) << count;
    EXPECT_EQ(waypoint.connectionCount, after);
  }
}

TEST_F(RedrawMapTest, SelectionIsMarkedWhateverIsShown) {
  Show({});
  AddTriangle(document_, {{{10, 10}, {50, 10}, {10, 50}}});
  AddSpawn(document_, 20, 21, 0);
  AddScenery(document_, 30.5f, 31.5f, 4);
  AddScenery(document_, 30.5f, 31.5f, 4);
  AddCollider(document_, 40, 41, 100);
  AddWaypoint(document_, 60, 61, 2);
  SelectEverything(selection_, document_);
  const Lines marks = {"circle ff0000 solid 10,10 r2", "circle ff0000 solid 50,10 r2",
                       "circle ff0000 solid 10,50 r2", "circle ff0000 solid 20,21 r2",
                       "circle ff0000 solid 30,31 r2", "circle ff0000 solid 30,31 r2",
                       "circle ff0000 solid 40,41 r2"};
  Lines expected = marks;
  expected.emplace_back("box 808080 dot 10,10 60,61");
  EXPECT_EQ(Draw(), expected);
  selection_.box.right = kUnsetCoordinate;
  EXPECT_EQ(Draw(), marks);
  Use(ToolMode::kAddWaypoint);
  expected.back() = "text ff0000 55,54.5 2";
  expected.emplace_back("box ff0000 solid 53,54 67,68");
  EXPECT_EQ(Draw(), expected);
}

TEST_F(RedrawMapTest, OneSelectedSceneryHasHandles) {
  Show({});
  SceneryObject& scenery = AddScenery(document_, 100, 200, 3);
  scenery.scaleX = 2;
  selection_.sceneries.Add(0);
  selection_.spawns.Add(0);
  EXPECT_THAT(Draw(),
              ElementsAre("circle ff0000 solid 0,0 r2", "circle ff0000 solid 99.5,199.5 r2",
                          "box ffff00 solid 197,197 203,203", "box 00ff00 solid 197,222 203,228"));
  selection_.box = {1, 2, 3, 4};  // leaves its pen style to the handles
  EXPECT_EQ(Draw().at(2), "box 808080 dot 1,3 2,4");
  EXPECT_EQ(Draw().at(3), "box ffff00 dot 197,197 203,203");
  scenery.type = 5;
  scenery.scaleX = 1;
  EXPECT_EQ(Draw().size(), 4U);
  EXPECT_EQ(Draw().at(3), "box 00ff00 dot 147,208 153,214");
  scenery.type = 200;
  EXPECT_EQ(Draw().at(3), "box ffff00 dot 97,197 103,203");
  Use(ToolMode::kAddScenery);
  EXPECT_EQ(Draw().size(), 2U);
  Use(ToolMode::kEdit);
  selection_.sceneries.Add(1);
  EXPECT_EQ(Draw().size(), 4U) << "three marks and the box";
}

TEST_F(RedrawMapTest, AdvancedOverlays) {
  Show({5});
  view_.centerX -= 200;  // window = world + 200
  view_.centerY -= 200;
  Polygon& polygon = AddTriangle(document_, {{{0, 0}, {0, 0}, {0, 0}}});
  polygon.vertices[0].u = polygon.vertices[0].v = 0.5f;
  polygon.vertices[1].u = 1;
  polygon.vertices[2].v = -1;
  document_.sectorDivision = 10;
  document_.backgroundColor1 = {1, 2, 3, 4};
  document_.backgroundColor2 = {5, 6, 7, 8};
  EXPECT_THAT(Draw(),
              ElementsAre("box 000080 dashdot 77,87 720,570", "circle 00ff00 solid 280,260 r1",
                          "line 030201 solid 50,50 50,350", "line 030201 solid 50,50 350,50",
                          "line 070605 solid 350,50 350,350", "line 070605 solid 50,350 350,350"));
  view_.zoom = 2;
  EXPECT_EQ(Draw().at(0), "box 000080 dashdot -243,-153 1040,810") << "never left out";
}

TEST_F(RedrawMapTest, AnOverflowingBorderSaturates) {
  Show({5});
  for (const std::int32_t division : {143165577, 200000000, 2147483647}) {
    document_.sectorDivision = division;
    view_.centerX = 2147483648.0f;
    const Lines lines = Draw();
    ASSERT_EQ(lines.size(), 2U) << division;
    EXPECT_TRUE(lines[1].starts_with("line 000000 solid 399.5,")) << lines[1];
  }
  document_.sectorDivision = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(Draw().size(), 2U) << "left and right are exchanged";
}

TEST_F(RedrawMapTest, WorldGridAlternatesFromEvenMultiples) {
  Show({});
  SetWindow(300, 100);
  view_.gridSize = 50;
  // Verticals stop 150 pixels short of the right edge; the line at 0 is no line inside.
  EXPECT_THAT(
      Draw(),
      ElementsAre("line 4b4b4b solid 50,0.5 50,100.5", "line 646464 solid 100,0.5 100,100.5",
                  "line 4b4b4b solid 150,0.5 150,100.5", "line 4b4b4b solid -0.5,50 299.5,50"));
  using Row = std::tuple<float, const char*>;
  for (const auto& [pan, first] :
       {Row(-50, "line 646464 solid 50,"), Row(-160, "line 4b4b4b solid 10,"),
        Row(60, "line 646464 solid 40,"), Row(140, "line 4b4b4b solid 10,"),
        Row(150, "line 646464 solid 50,")}) {
    SetWindow(300, 100);
    view_.centerX += pan;
    EXPECT_TRUE(Draw().at(0).starts_with(first)) << pan << ": " << Draw().at(0);
  }
  view_.gridSize = 0;
  EXPECT_THAT(Draw(), IsEmpty());
}

TEST_F(RedrawMapTest, FixedGridStandsInTheWindow) {
  Show({});
  SetWindow(60, 40);
  view_.centerX = 1e30f;
  view_.fixedGrid = true;
  view_.gridSize = 25;
  EXPECT_THAT(Draw(), ElementsAre("line 646464 solid 0,0 60,0", "line 646464 solid 0,0 0,40",
                                  "line 4b4b4b solid 0,25 60,25", "line 4b4b4b solid 25,0 25,40",
                                  "line 646464 solid 0,50 60,50", "line 646464 solid 50,0 50,40"));
  view_.zoom = 0.5f;
  view_.gridSize = 5;  // too dense: coarsened to 25, which is 12 pixels here
  const Lines lines = Draw();
  EXPECT_EQ(view_.gridSize, 25);
  ASSERT_EQ(lines.size(), 12U);
  EXPECT_EQ(lines[10], "line 4b4b4b solid 0,60 60,60");
}

TEST_F(RedrawMapTest, LaterKindsPaintOverEarlierOnes) {
  Polygon& polygon = AddTriangle(document_, {{{10, 10}, {50, 10}, {10, 50}}});
  for (PolygonVertex& corner : polygon.vertices) {
    corner.color = {0x0A, 0x0A, 0x0A, 0};
    corner.u = corner.v = 1;
  }
  AddSpawn(document_, 20, 20, 0);
  AddScenery(document_, 30, 30, 1);
  AddCollider(document_, 40, 40, 10);
  AddWaypoint(document_, 50, 50, 1, {2});
  AddWaypoint(document_, 60, 60, 0);
  document_.sectorDivision = 5;
  document_.backgroundColor2 = {255, 255, 255, 0};
  view_.gridSize = 100;
  view_.fixedGrid = true;
  Show({0, 1, 2, 3, 4, 5});
  const auto colors = [this] {
    Lines runs;
    for (const std::string& line : Draw()) {
      const std::string color = line.substr(line.find(' ') + 1, 6);
      if (color == "4b4b4b" || (!runs.empty() && runs.back() == color)) continue;
      runs.push_back(color);
    }
    return runs;
  };
  SelectEverything(selection_, document_);
  EXPECT_THAT(colors(),
              ElementsAre("646464", "0a0a0a", "008080", "800080", "808000", "0000ff", "000000",
                          "ff0000", "808080", "ffff00", "00ff00", "000080", "00ff00", "ffffff"));
  Show({});
  EXPECT_THAT(colors(), ElementsAre("646464", "ff0000", "808080", "ffff00", "00ff00"));

  Show({0, 1});
  ClearLists(selection_);
  Use(ToolMode::kAddPolygon);
  EXPECT_THAT(colors(), ElementsAre("646464", "0a0a0a", "ff0000", "008080"));
}

TEST_F(RedrawMapTest, ColourNumbersHoldRedLowest) {
  EXPECT_EQ(LongToRGB(0x030201), (Rgb{1, 2, 3}));
  EXPECT_EQ(LongToRGB(-2), (Rgb{254, 255, 255}));
}

}  // namespace
}  // namespace vesmora
