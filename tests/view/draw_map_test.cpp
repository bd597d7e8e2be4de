// A small scene with every kind of object, as data/drawing.svg shows it.
#include "view/draw_map.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/bench.h"
#include "support/map_builder.h"
#include "view/svg_canvas.h"

namespace vesmora {
namespace {

constexpr int kWidth = 300;
constexpr int kHeight = 250;

class DrawMapTest : public testing::Test {
 protected:
  DrawMapTest() {
    // The window's coordinates are the world's.
    view_.area = {kWidth, kHeight, 0, 0, 0};
    view_.centerX = kWidth / 2.0f - 0.5f;
    view_.centerY = kHeight / 2.0f + 0.5f;
  }
  /// Below what was drawn before.
  void Draw() {
    SvgCanvas canvas(kWidth, kHeight);
    DrawMap({map_, selection_, view_, show_, tool_}, canvas);
    drawn_ += "<g transform=\"translate(0," + std::to_string(kHeight * drawings_++) + ")\">\n" +
              canvas.TakeElements() + "</g>\n";
  }

  MapDocument map_;
  Selection selection_;
  ViewTransform view_;
  ShowOptions show_;
  ToolDrawing tool_;
  std::string drawn_;
  int drawings_ = 0;
};

TEST_F(DrawMapTest, EveryKindInItsColoursPensAndPlace) {
  show_.showFlags = {1, 1, 1, 1, 1, 1, 0};
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
  const std::string path = DataPath("drawing.svg");
  const std::string file = SvgFile(kWidth, kHeight * drawings_, drawn_);
  const auto bytes = std::as_bytes(std::span(file));
  if (std::getenv("VESMORA_RECORD") != nullptr) PutFile(path, {bytes.begin(), bytes.end()});
  EXPECT_TRUE(std::ranges::equal(FileBytes(path), bytes)) << file;
}

}  // namespace
}  // namespace vesmora
