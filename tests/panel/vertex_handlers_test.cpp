// What the controls of "Vertice info" and "Polygon info" do to the selected corners.
#include "panel/vertex_handlers.h"

#include <gmock/gmock.h>

#include "support/panel_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class VertexHandlersTest : public testing::Test, protected PanelBench {
 protected:
  auto& Corner(std::size_t polygon, std::size_t corner) {
    return map.polygons[polygon].vertices[corner];
  }
};

TEST_F(VertexHandlersTest, VertexColor) {
  Corner(0, 0).color = Corner(1, 2).color = {3, 2, 1, 77};
  Show(ToolMode::kEdit, "v0.0 v1.2");
  dialogs.chosenColors = {std::nullopt, 0x0A0B0C};
  Expect(CBverticevari_Click, {"ChooseColor"});
  Expect(CBverticevari_Click, {"ChooseColor", "Step Color", "RefreshInfoPanel", "RedrawMap"},
         [](MapDocument& document) {
           document.polygons[0].vertices[0].color =
               document.polygons[1].vertices[2].color = {10, 11, 12, 77};
         });
  EXPECT_THAT(dialogs.colorRequests, ElementsAre(0x030201, 0x030201));
  EXPECT_EQ(shown.CBverticevari.color, (Rgb{12, 11, 10}));

  Choose(ToolMode::kAddPolygon);
  EXPECT_EQ(shown.CBverticevari.color, (Rgb{12, 11, 10}));  // the last polygon's third corner
  dialogs.chosenColors = {0x030405, std::nullopt};
  const DocumentState before = StateOf(map);
  CBverticevari_Click(context);
  CBverticevari_Click(context);
  EXPECT_EQ(StateOf(map), before);
  EXPECT_THAT(Steps(), ElementsAre("Color"));
  EXPECT_EQ(dialogs.colorRequests.back(), 0x030405);
  EXPECT_EQ(shown.CBverticevari.color, (Rgb{5, 4, 3}));
  EXPECT_EQ(state.tool.next.vertexColor, (Rgb{5, 4, 3}));
}

TEST_F(VertexHandlersTest, PassableAsksFirst) {
  const Message question = {
      "This is not RECOMMENED setting.\nPlayers will disappear behind passable polygons and the "
      "official MapMaker will not allow to edit these polygons.\nDo you still want to use this?",
      "Warning", MessageIcon::kQuestion};
  for (auto& polygon : map.normals) polygon.edges.fill({1, 2, 3});
  Show(ToolMode::kEdit, "v0.2 v1.0");
  dialogs.answers = {false, true};
  Expect(With(CBverticeLapi_Click, true), {"Ask Warning"});
  EXPECT_EQ(shown.CBverticeLapi.tick, Tick::kOn);  // until the next refresh
  RefreshInfoPanel(context);
  EXPECT_EQ(shown.CBverticeLapi.tick, Tick::kOff);
  Expect(With(CBverticeLapi_Click, true), {"Ask Warning", "Step Passable", "RedrawMap"},
         [](MapDocument& document) {
           for (std::size_t i = 0; i < 2; ++i) document.normals[i].edges.fill({0, 0, 3});
         });
  EXPECT_THAT(dialogs.messages, ElementsAre(question, question));
  EXPECT_EQ(shown.CBverticeLapi.tick, Tick::kOn);
}

TEST_F(VertexHandlersTest, ConnectJoinsCornersOneAxisAfterTheOther) {
  const auto place = [this](std::size_t corner, float x, float y, float u, float v) {
    Corner(0, corner) = {.x = x, .y = y, .z = 1, .rhw = 1, .color = {}, .u = u, .v = v};
  };
  const auto corners = [this] {
    std::vector<std::array<float, 4>> all;
    for (const auto& corner : map.polygons[0].vertices) {
      all.push_back({corner.x, corner.y, corner.u, corner.v});
    }
    return all;
  };
  using Place = std::array<float, 4>;
  const EventLog asked = {"Step Connect", "RefreshInfoPanel", "RedrawMap"};
  place(0, 0, 0, 1, 1);
  place(1, 10, 20, 0, 1);  // without a texture
  place(2, 70, 80, 1, 1);
  Show(ToolMode::kEdit, "v0.0 v0.1");
  CByhista_Click(context);
  EXPECT_EQ(TakeEvents(), asked);
  EXPECT_THAT(corners(), ElementsAre(Place{5, 10, 1 + 5 / 160.f, 1 + 10 / 120.f},
                                     Place{5, 10, 0, 1}, Place{70, 80, 1, 1}));
  EXPECT_EQ(Listed(), "v0.0 v0.1");
  // A corner listed twice weighs twice; a u that becomes 0 on the way keeps its v.
  place(0, 0, 0, -0.0625f, 1);
  place(1, 30, 6, 1, 1);
  Show(ToolMode::kEdit, "v0.0 v0.1 v0.0");
  CByhista_Click(context);
  EXPECT_THAT(corners(),
              ElementsAre(Place{10, 2, 0, 1}, Place{10, 2, 1 - 20 / 160.f, 1 - 4 / 120.f},
                          Place{70, 80, 1, 1}));
}

TEST_F(VertexHandlersTest, DisconnectSpreadsCornersInItsPattern) {
  constexpr std::array<std::array<float, 2>, 6> kPixels = {
      {{1, -0.5f}, {-7, 0}, {13, 6.5f}, {-19, -9.5f}, {25, 0}, {-31, 15.5f}}};
  for (const float zoom : {1.f, 2.f, 0.25f}) {
    state.view.zoom = zoom;
    for (std::size_t i = 0; i < 6; ++i) {
      Corner(i / 3, i % 3) = {.x = 0, .y = 0, .z = 1, .rhw = 1, .color = {}, .u = 1, .v = 1};
    }
    Corner(1, 1).v = 0;
    Show(ToolMode::kEdit, "v0.0 v0.1 v0.2 v1.0 v1.1 v1.2");
    CBerota_Click(context);
    EXPECT_THAT(TakeEvents(),
                ElementsAre("Step Disconnect", "SetPointer 0", "RedrawMap", "RefreshInfoPanel"));
    EXPECT_EQ(Listed() + shown.Lvalinta, "Nothing");
    for (std::size_t i = 0; i < 6; ++i) {
      const PolygonVertex& corner = Corner(i / 3, i % 3);
      const float x = kPixels[i][0] / zoom;
      const float y = kPixels[i][1] / zoom;
      EXPECT_EQ(corner.x, x);
      EXPECT_EQ(corner.y, y);
      EXPECT_FLOAT_EQ(corner.u, i == 4 ? 1 : 1 + x / 160);
      EXPECT_FLOAT_EQ(corner.v, i == 4 ? 0 : 1 + y / 120);
    }
  }
  state.view.zoom = 1;
  Corner(0, 0).x = Corner(0, 0).y = 0;
  Show(ToolMode::kEdit, "v0.0 v0.0");  // listed twice, moved twice
  CBerota_Click(context);
  EXPECT_EQ(Corner(0, 0).x, -6);
  EXPECT_EQ(Corner(0, 0).y, -0.5f);
}

}  // namespace
}  // namespace vesmora
