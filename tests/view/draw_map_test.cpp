// Small scenes; data/drawings.txt has everything that each test paints, in order.
#include "view/draw_map.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <tuple>

#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

/// A Canvas that keeps what was drawn on it, one line of text a primitive: "clear",
/// "line 0000ff dot 1,2 3,4", "box 0000ff 1,2 3,4", "circle ff0000 1,2 r5", "text 0000ff 1,2 1".
/// Colours are RGB, a solid pen goes unsaid, coordinates are given to a thousandth.
class RecordingCanvas final : public Canvas {
 public:
  std::vector<std::string> lines;

  void Clear() override { lines.emplace_back("clear"); }
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override {
    Add("line ", pen, from, Place(to));
  }
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override {
    Add("box ", pen, corner, Place(opposite));
  }
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override {
    Add("circle ", pen, center, "r" + std::to_string(radius));
  }
  void DrawText(Rgb color, ScreenPoint topLeft, std::string_view text) override {
    Add("text ", {color, PenStyle::kSolid}, topLeft, std::string(text));
  }
  /// Every character is 8 x 13 pixels large.
  TextSize MeasureText(std::string_view text) override {
    return {8 * static_cast<float>(text.size()), 13};
  }

 private:
  void Add(const char* kind, Pen pen, ScreenPoint from, const std::string& rest) {
    constexpr std::array kStyles = {" ", " dash ", " dot ", " dashdot "};
    std::array<char, 8> color;
    std::snprintf(color.data(), color.size(), "%02x%02x%02x", pen.color.red, pen.color.green,
                  pen.color.blue);
    lines.push_back(kind + std::string(color.data()) +
                    kStyles[static_cast<std::size_t>(pen.style)] + Place(from) + " " + rest);
  }
  static std::string Place(ScreenPoint point) {
    // Adding zero turns the -0 that rounding may leave into 0.
    const auto round = [](float value) { return std::nearbyint(value * 1000.0) / 1000.0 + 0.0; };
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%.12g,%.12g", round(point.x), round(point.y));
    return text.data();
  }
};

class DrawMapTest : public testing::Test {
 protected:
  /// What was drawn must be what stands below the test's name, up to the next empty line.
  void TearDown() override {
    std::ifstream file(DataPath("drawings.txt"));
    const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
    std::string recorded;
    std::string line;
    while (std::getline(file, line) && line != name) continue;
    while (std::getline(file, line) && !line.empty()) recorded += line + "\n";
    EXPECT_EQ(drawn_, recorded);
  }

  /// A window whose coordinates are the world's at 100%, as they are at first.
  void SetWindow(int width, int height) {
    view_.area = {width, height, 0, 0, 0};
    view_.centerX = static_cast<float>(width) / 2 - 0.5f;
    view_.centerY = static_cast<float>(height) / 2 + 0.5f;
  }
  std::size_t CountDrawn() {
    RecordingCanvas canvas;
    DrawMap({map_, selection_, view_, show_, tool_}, canvas);
    std::swap(canvas.lines, lines_);
    return lines_.size();
  }
  void Draw() {
    CountDrawn();
    for (const std::string& line : lines_) drawn_ += line + "\n";
  }

  MapDocument map_;
  Selection selection_;
  ViewTransform view_{.centerX = 399.5f, .centerY = 300.5f, .area = {1000, 700, 200, 100, 60}};
  ShowOptions show_;
  ToolDrawing tool_;
  std::vector<std::string> lines_;
  std::string drawn_;
};

TEST_F(DrawMapTest, EveryKindInItsColoursPensAndPlace) {
  show_.showFlags = {1, 1, 1, 1, 1, 1, 0};
  SetWindow(300, 250);
  view_.gridSize = 100;
  view_.fixedGrid = true;
  Polygon& polygon = AddTriangle(map_, {{{10, 10}, {50, 10}, {10, 50}}});
  polygon.vertices[0].color = {1, 2, 3, 99};
  polygon.vertices[1].color = {4, 5, 6, 99};
  polygon.vertices[0].u = polygon.vertices[0].v = polygon.vertices[1].u = 0.5f;
  polygon.vertices[2].v = -1;
  map_.polygons[0].edges = {{{0, 1, 0}, {0, -0.0f, 5}, {1, 0, 0}}};
  float x = 19;
  for (const char team : std::string("021312")) {
    AddSpawn(map_, x++, 30.5f, static_cast<std::uint8_t>(team - '0'));
  }
  SceneryObject& scenery = AddScenery(map_, 100.5f, 200.5f, 3);
  scenery.scaleY = 2;
  scenery.width = scenery.height = 999;  // never used
  scenery.rotation = 1.5707964f;
  AddCollider(map_, 40, 41, 7);
  AddWaypoint(map_, 100, 100, 1, {2, 0, 501, -1, 3});
  AddWaypoint(map_, 200, 100, 2).botSettings = {0, 1, 0, 0, 0};
  AddWaypoint(map_, 100, 4, 3);  // neither path: shown with both
  map_.sectorDivision = 10;
  map_.backgroundColor2 = {5, 6, 7, 8};
  SelectEverything(selection_, map_);
  tool_.connectionFrom = 0;
  tool_.mouseX = 40;
  tool_.mouseY = 100;
  Draw();
  show_.showFlags.fill(0);
  view_.gridSize = 0;
  selection_.vertices.last = selection_.spawns.last = 0;
  scenery.type = 5;  // a liana has one handle
  Draw();
  selection_.box.right = kUnsetCoordinate;
  scenery.type = 22;
  Draw();
  selection_.sceneries.Append(1);
  Draw();
  map_.toolIndex = ToolMode::kAddWaypoint;
  Draw();
  ClearLists(selection_);
  show_.showFlags = {0, 0, 1, 0, 1, 0, 0};
  show_.pathFilter = 2;
  view_.zoom = 4;
  Draw();
}

TEST_F(DrawMapTest, WhatAToolIsAboutToPlaceLiesBehindTheLast) {
  show_.showFlags = {0, 1, 1, 1, 0, 0, 0};
  map_.spawns.slots.fill({1, 10 * 256, 10 * 256, 1, 0, {}});
  map_.sceneries.slots.fill({0, 22, {}, 0, 0, 5.5f, 6.5f, 0, 1, 1, 0, {}});
  map_.colliders.slots.fill({0, {}, 0, 7, 8, 10});
  for (Polygon& polygon : map_.polygons.slots) polygon.vertices[2].x = 11;
  for (int tool = 0; tool < kToolCount; ++tool) {
    map_.toolIndex = static_cast<ToolMode>(tool);
    using Row = std::tuple<int, int, bool>;
    for (const auto& [last, corners, showsNext] :
         {Row(-1, 0, true), Row(1, 0, false), Row(1, 2, true), Row(398, 0, true), Row(399, 0, true),
          Row(399, 2, true)}) {
      map_.polygons.last = static_cast<std::int16_t>(last);
      tool_ = {.placedCorners = corners, .showsNext = showsNext};
      if (tool == 1 || last < 2) Draw();
    }
  }
  show_.showFlags.fill(0);
  map_.toolIndex = ToolMode::kAddPolygon;
  selection_.vertices.Append({0, 2});
  Draw();
}

TEST_F(DrawMapTest, ACollidersSizeIsItsDiameter) {
  show_.showFlags = {0, 0, 0, 1, 0, 0, 0};
  for (const float size : {25.0f, 7.0f, 1e30f, kNan}) AddCollider(map_, 399.5f, 300.5f, size);
  for (const float zoom : {0.5f, 1.0f, 4.0f}) {
    view_.zoom = zoom;
    Draw();
  }
}

TEST_F(DrawMapTest, RoutesTakeTheTargetsColourAndNoMoreThanTheSlotsThereAre) {
  show_.showFlags = {0, 0, 0, 0, 1, 0, 0};
  show_.pathFilter = 1;  // without the target itself
  Waypoint& waypoint = AddWaypoint(map_, 100, 100, 1, {2});
  waypoint.botSettings = {1, 1, 1, 1, 1};
  auto& settings = AddWaypoint(map_, 200, 100, 0).botSettings;
  for (std::size_t i = 0; i < 5; ++i) {
    settings[i] = 1;
    Draw();
  }
  settings = {2, 255, 0, 0, 0};
  tool_.connectionFrom = 0;
  tool_.mouseX = -110;  // only the barbs' tips reach into the window
  tool_.mouseY = 100;
  Draw();
  map_.waypoints[1].active = 2;  // would make a 21st connection
  waypoint.connections.fill(2);
  tool_.connectionFrom = kNoIndex;
  for (const auto& [count, routes] : {std::pair(21, 20U), {-1, 0U}}) {
    waypoint.connectionCount = count;
    EXPECT_EQ(CountDrawn(), 3 + 3 * routes) << count;
  }
}

TEST_F(DrawMapTest, BordersAndGrids) {
  show_.showFlags = {0, 0, 0, 0, 0, 1, 0};
  map_.sectorDivision = 10;
  map_.backgroundColor2 = {5, 6, 7, 8};
  view_.centerX = view_.centerY = 0;
  Draw();
  map_.sectorDivision = 200000000;  // saturates
  view_.centerX = 2147483648.0f;
  Draw();
  show_.showFlags.fill(0);
  view_.gridSize = 50;
  for (const float pan : {0.f, -160.f, 60.f, 150.f}) {
    SetWindow(300, 100);
    view_.centerX += pan;
    Draw();
  }
  SetWindow(60, 40);
  view_.centerX = 1e30f;
  view_.fixedGrid = true;
  view_.zoom = 0.5f;
  view_.gridSize = 5;  // too dense: coarsened to 25, which is 12 pixels here
  Draw();
}

}  // namespace
}  // namespace vesmora
