#include <gmock/gmock.h>

#include <tuple>

#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MapColor kOld = {.blue = 1, .green = 2, .red = 3, .alpha = 7};
constexpr MapColor kRecoloured = {.blue = 30, .green = 20, .red = 10, .alpha = 7};
constexpr MapColor kFresh = {.blue = 30, .green = 20, .red = 10, .alpha = 255};

/// Three triangles share the corner 57, 46; one more has a corner right beside it.
struct PolygonBench : ToolBench {
  PolygonBench() {
    for (const float x : {57.0f, 57.0f, 57.5f, 57.0f}) {
      for (PolygonVertex& vertex : AddTriangle(map, {{{-300, 0}, {x, 46}, {-300, 50}}}).vertices) {
        vertex.color = kOld;
      }
    }
    ChangeTool(editing, ToolMode::kAddPolygon);
    state.tool.next.vertexColor = {10, 20, 30};
    TakeEvents();
  }

  Polygon& Last() { return map.polygons[static_cast<std::size_t>(map.lastPolygon)]; }
  std::vector<MapColor> SharedColors() const {
    std::vector<MapColor> colors;
    for (std::size_t i = 0; i < 4; ++i) colors.push_back(map.polygons[i].vertices[1].color);
    return colors;
  }
};

class AddPolygonTest : public testing::Test, protected PolygonBench {};

struct Placing {
  std::string keys;  // grid, ctrl, shift
  ScreenPoint mouse;
  ScreenPoint corner;
  ScreenPoint textured;  // the world point whose texture the corner shows
  bool recolours;
  bool Has(const char* key) const { return keys.find(key) != std::string::npos; }
};

constexpr ScreenPoint kAway = {100.5f, 20.25f};  // over no vertex
constexpr ScreenPoint kVertex = {57, 46};
constexpr ScreenPoint kOverVertex = {59, 47};
constexpr ScreenPoint kAwaySnapped = {100, 25};
constexpr ScreenPoint kVertexSnapped = {50, 50};

/// Hovers as if neither grid nor Shift were there, then clicks with them.
void Place(PolygonBench& bench, const Placing& placing) {
  bench.state.view.gridSize = placing.Has("grid") ? 25 : 0;
  bench.state.ctrlDown = true;
  bench.state.shiftDown = false;
  bench.Move(placing.mouse.x, placing.mouse.y);
  bench.state.ctrlDown = placing.Has("ctrl");
  bench.state.shiftDown = placing.Has("shift");
  bench.Press(placing.mouse.x, placing.mouse.y);
  bench.Release();
}

void ExpectCorner(const PolygonVertex& vertex, const Placing& placing) {
  EXPECT_NEAR(vertex.x, placing.corner.x, 1e-3) << placing.keys;
  EXPECT_NEAR(vertex.y, placing.corner.y, 1e-3) << placing.keys;
  EXPECT_FLOAT_EQ(vertex.u, placing.textured.x / 160) << placing.keys;
  EXPECT_FLOAT_EQ(vertex.v, placing.textured.y / 120) << placing.keys;
  EXPECT_EQ(std::tuple(vertex.z, vertex.rhw), std::tuple(1, 1)) << placing.keys;
  EXPECT_EQ(vertex.color, kFresh) << placing.keys;
}

TEST_F(AddPolygonTest, OnTheFirstClickTheGridBeatsTheVertex) {
  for (const Placing& placing :
       {Placing{"", kAway, kAway, kAway, false}, Placing{"", kOverVertex, kVertex, kVertex, true},
        Placing{"shift", kOverVertex, kVertex, kVertex, true},
        Placing{"grid", kAway, kAwaySnapped, kAwaySnapped, false},
        Placing{"grid shift", kAway, kAwaySnapped, kAwaySnapped, false},
        Placing{"grid", kOverVertex, kVertexSnapped, kVertexSnapped, true},
        Placing{"grid ctrl", kAway, kAway, kAway, false},
        Placing{"grid ctrl", kOverVertex, kVertex, kVertex, true}}) {
    PolygonBench bench;
    const DocumentState before = StateOf(bench.map);
    Place(bench, placing);
    EXPECT_EQ(bench.map.lastPolygon, 4);
    for (const PolygonVertex& vertex : bench.Last().vertices) ExpectCorner(vertex, placing);
    const MapColor shared = placing.recolours ? kRecoloured : kOld;
    EXPECT_THAT(bench.SharedColors(), ElementsAre(shared, shared, kOld, shared)) << placing.keys;
    EXPECT_EQ(bench.map.polygons[0].vertices[1].x, 57);
    EXPECT_EQ(bench.map.polygons[0].vertices[1].u, 0);
    EXPECT_THAT(bench.Steps(), ElementsAre("Polygon"));
    EXPECT_EQ(std::get<1>(bench.BeforeNewestStep()), std::get<1>(before));
    EXPECT_EQ(bench.state.tool.value, 1);
  }
}

TEST_F(AddPolygonTest, OnLaterClicksTheVertexBeatsTheGridAndShiftBeatsBoth) {
  constexpr ScreenPoint kRay = {9.513149f, 9.513149f};          // 13.454 away, as 10, 9 is
  constexpr ScreenPoint kVertexRay = {53.338541f, 53.338541f};  // 75.432 away, as 59, 47 is
  for (const Placing& placing :
       {Placing{"", kAway, kAway, kAway, false}, Placing{"", kOverVertex, kVertex, kVertex, true},
        Placing{"grid", kAway, kAwaySnapped, kAway, false},
        Placing{"grid", kOverVertex, kVertex, kVertex, true},
        Placing{"grid ctrl", kAway, kAway, kAway, false},
        Placing{"shift", {10, 9}, kRay, {10, 9}, false},
        Placing{"grid shift", {10, 9}, kRay, {10, 9}, false},
        Placing{"shift", kOverVertex, kVertexRay, kOverVertex, false}}) {
    PolygonBench bench;
    bench.Click(0, 0);
    bench.state.tool.next.vertexColor = {10, 20, 30};
    Place(bench, placing);
    ExpectCorner(bench.Last().vertices[1], placing);
    EXPECT_EQ(bench.state.tool.value, 2);
    Place(bench, placing);
    if (!placing.Has("shift")) ExpectCorner(bench.Last().vertices[2], placing);
    EXPECT_EQ(bench.state.tool.value, 0);
    EXPECT_EQ(bench.map.lastPolygon, 4);
    const MapColor shared = placing.recolours ? kRecoloured : kOld;
    EXPECT_THAT(bench.SharedColors(), ElementsAre(shared, shared, kOld, shared)) << placing.keys;
    EXPECT_THAT(bench.Steps(), ElementsAre("Polygon"));
    EXPECT_FALSE(bench.state.gesture.InProgress());
  }
}

TEST_F(AddPolygonTest, ShiftGoesOnFromTheCornerBefore) {
  Click(100, 100);
  Click(200, 100);
  state.shiftDown = true;
  for (const auto& [mouse, corner] :
       {std::pair(ScreenPoint{230, 140}, ScreenPoint{235.355f, 135.355f}),
        {{170, 140}, {164.645f, 135.355f}},
        {{190, 60}, {200, 58.769f}}}) {
    Move(mouse.x, mouse.y);
    EXPECT_NEAR(Last().vertices[2].x, corner.x, 1e-3) << mouse.x;
    EXPECT_NEAR(Last().vertices[2].y, corner.y, 1e-3) << mouse.x;
  }
}

TEST_F(AddPolygonTest, TheThirdCornerFillsTheNormals) {
  auto& edges = map.normals[4].edges;
  edges.fill({0, 0, 5});
  Click(0, 0);
  Click(30, 0);
  EXPECT_EQ(edges[0], (Normal{0, 0, 5}));
  Click(0, 40);
  const std::array<Normal, 3> expected = {{{0, 1, 5}, {-0.8f, -0.6f, 5}, {1, 0, 5}}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_NEAR(edges[i].x, expected[i].x, 1e-6);
    EXPECT_NEAR(edges[i].y, expected[i].y, 1e-6);
    EXPECT_EQ(edges[i].z, 5);
    EXPECT_TRUE(edges[i].x != 0 && edges[i].y != 0) << "a zero would make the edge passable";
  }
}

TEST_F(AddPolygonTest, TheNextCornerFollowsThePointer) {
  Click(0, 0);
  struct Row {
    std::int16_t grid;
    bool shift;
    ScreenPoint mouse, corner;
    const char* listed;
  };
  for (const Row& row :
       {Row{0, false, kAway, kAway, ""}, Row{0, false, kOverVertex, kVertex, "v0.1"},
        Row{0, false, {52, 41}, kVertex, "v0.1"}, Row{0, false, {51.75f, 41}, {51.75f, 41}, ""},
        Row{25, false, kAway, kAwaySnapped, ""}, Row{25, false, kOverVertex, kVertexSnapped, ""},
        Row{0, true, {10, 9}, {9.513149f, 9.513149f}, ""}, Row{0, false, {1, 1}, {1, 1}, ""}}) {
    state.view.gridSize = row.grid;
    state.shiftDown = row.shift;
    state.tool.next.vertexColor.blue = static_cast<std::uint8_t>(row.mouse.x);
    Move(row.mouse.x, row.mouse.y);
    EXPECT_NEAR(Last().vertices[1].x, row.corner.x, 1e-4) << row.mouse.x;
    EXPECT_NEAR(Last().vertices[1].y, row.corner.y, 1e-4) << row.mouse.x;
    EXPECT_EQ(Last().vertices[1].color.blue, static_cast<std::uint8_t>(row.mouse.x));
    EXPECT_EQ(Listed(), row.listed) << row.mouse.x << ": never a corner of its own";
    EXPECT_EQ(events.back(), "RedrawMap");
  }
  EXPECT_EQ(Last().vertices[2].x, 0);
  state.view.zoom = 0.5f;  // reaches 6.667 units, not the whole 7 of a click
  Move(63.625f, 46);
  EXPECT_EQ(Listed(), "v0.1");
  Move(63.75f + 0.5f, 46);
  EXPECT_EQ(Listed(), "");
  Move(58, 46);
  ForgetHover(editing);
  EXPECT_EQ(Listed(), "");
}

TEST_F(AddPolygonTest, ThePreviewIsCornerZeroOfTheNextSlot) {
  struct Row {
    const char* name;
    std::int16_t lastPolygon, lastSpawn, grid;
    ScreenPoint mouse, preview;
  };
  constexpr ScreenPoint kUntouched = {-1, -1};
  for (const Row& row :
       {Row{"free", 3, -1, 0, kAway, kAway}, Row{"grid", 3, -1, 25, kAway, kAwaySnapped},
        Row{"hovering", 3, -1, 0, kOverVertex, kUntouched},
        Row{"spawns full", 3, 29, 0, kAway, kAway},
        // Kept quirk: with the grid it is the spawns' table that counts.
        Row{"grid, spawns full", 3, 29, 25, kAway, kUntouched},
        Row{"grid, one spawn left", 3, 28, 25, kAway, kAwaySnapped},
        Row{"last slot", 398, -1, 0, kAway, kAway}, Row{"full", 399, -1, 0, kAway, kUntouched}}) {
    map.lastPolygon = 3;
    ZeroTables(map, ZeroSlots::kUnused);
    map.lastPolygon = row.lastPolygon;
    map.lastSpawn = row.lastSpawn;
    state.view.gridSize = row.grid;
    PolygonVertex& preview =
        map.polygons[static_cast<std::size_t>(std::min(row.lastPolygon + 1, 399))].vertices[0];
    preview.x = preview.y = -1;
    Move(row.mouse.x, row.mouse.y);
    EXPECT_EQ((ScreenPoint{preview.x, preview.y}), row.preview) << row.name;
    EXPECT_EQ(map.lastPolygon, row.lastPolygon);
  }
}

TEST_F(AddPolygonTest, EscapeTakesTheTriangleAndItsColoursBack) {
  for (const int clicks : {1, 2}) {
    Move(59, 47);
    const DocumentState before = StateOf(map);
    Press(59, 47);
    Release();
    if (clicks == 2) Click(150, 150);
    Move(160, 160);
    CancelGesture(editing);
    EXPECT_EQ(StateOf(map), before);
    EXPECT_EQ(state.tool.value, 0);
    EXPECT_THAT(Steps(), IsEmpty());
    EXPECT_EQ(map.toolIndex, ToolMode::kAddPolygon);
    Click(200, 200);
    Click(220, 200);
    Click(220, 220);
    EXPECT_EQ(map.lastPolygon, 4) << "the next click starts a new one";
    CancelGesture(editing);
    EXPECT_EQ(map.lastPolygon, 4) << "a finished one stays";
    map.lastPolygon = 3;
    ClearHistory(state.journal);
  }
}

}  // namespace
}  // namespace vesmora
