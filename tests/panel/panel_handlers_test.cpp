// What the panel's controls do: the order of check, undo step, dialog, change and redraw.
#include "panel/panel_handlers.h"

#include <gmock/gmock.h>

#include <tuple>
#include <utility>

#include "document/geometry.h"
#include "support/panel_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

constexpr auto kEdit = ToolMode::kEdit;

const Message kPassableQuestion = {
    "This is not RECOMMENED setting.\nPlayers will disappear behind passable polygons and the "
    "official MapMaker will not allow to edit these polygons.\nDo you still want to use this?",
    "Warning", MessageIcon::kQuestion};

class PanelHandlersTest : public testing::Test, protected PanelBench {
 protected:
  PolygonVertex& Corner(int polygon, std::size_t corner) {
    return map.polygons[polygon].vertices[corner];
  }
};

TEST_F(PanelHandlersTest, RefusalStepChangeAndRedrawInEdit) {
  dialogs.answers.assign(1, true);
  dialogs.chosenColors = {0x0A0B0C};
  Corner(0, 1).color = Corner(1, 2).color = {3, 2, 1, 77};
  for (auto& polygon : map.polygons.Used()) polygon.edges.fill({0, 2, 3});
  for (auto& corner : map.polygons[0].vertices) corner.u = corner.v = 7;
  const auto corners = [](auto change) {
    return [=](MapDocument& m) { std::ranges::for_each(m.polygons[0].vertices, change); };
  };
  const auto world = [](PolygonVertex& corner) {
    corner.u = corner.x / 160, corner.v = corner.y / 120;
  };
  const auto none = [](PolygonVertex& corner) { corner.u = corner.v = 0; };
  const auto spawns = [](std::uint8_t team) {
    return [=](MapDocument& m) { m.spawns[0].team = m.spawns[1].team = team; };
  };
  const auto recolor = [](MapDocument& m) {
    m.polygons[0].vertices[1].color = m.polygons[1].vertices[2].color = {10, 11, 12, 77};
  };
  const std::map<char, const char*> needed = {{'v', "vertice."},
                                              {'s', "spawnpoint."},
                                              {'o', "scenery."},
                                              {'c', "collider."},
                                              {'w', "waypoint."}};
  using Row = std::tuple<std::string, std::string, Act, Change>;
  for (const auto& [listed, asked, act, change] :
       {Row("v0.1 v1.2", "ChooseColor, Step Color, RefreshInfoPanel, RedrawMap",
            CBverticevari_Click, recolor),
        Row("v0.1", "Ask Warning, Step Passable, RedrawMap", With(CBverticeLapi_Click, true),
            [](MapDocument& m) {
              m.polygons[0].edges.fill({0, 0, 3});
            }),
        Row("v0.1", "Step Passable, RedrawMap", With(CBverticeLapi_Click, false),
            [](MapDocument& m) { RecomputeNormals(m.polygons[0]); }),
        Row("v0.1", "Step Texture, RedrawMap", CBtexPalauta_Click, corners(world)),
        Row("v0.1 v0.2", "Step Texture, RedrawMap", CBtexPoista_Click, corners(none)),
        Row("s0 s1", "Step Type, RedrawMap", With(CBspawn_Click, "CTF Blue"), spawns(2)),
        Row("s0 s1", "Step Type, RedrawMap", With(CBspawn_Click, "Many types"), spawns(0)),
        Row("o0 o2", "Step Type, RedrawMap", With(CBscenery_Click, "Big Crate"),
            [](MapDocument& m) { m.sceneries[0].type = m.sceneries[2].type = 21; }),
        Row("o0 o2", "", With(CBscenery_Click, "Many types"), {}),
        Row("o0 o2", "Step Visibility, RedrawMap", With(CBscenery2_Click, "75%"),
            [](MapDocument& m) { m.sceneries[0].level = m.sceneries[2].level = 191; }),
        Row("c0 c1", "Step Size, RedrawMap", With(CBcollider_Click, "998.5"),
            [](MapDocument& m) { m.colliders[0].radius = m.colliders[1].radius = 998.5f; }),
        Row("w0 w2", "Step Editing, RedrawMap", With(CBbotValinta_Click, 4, true),
            [](MapDocument& m) {
              m.waypoints[0].botSettings[4] = m.waypoints[2].botSettings[4] = 1;
            }),
        Row("w0 w1", "Step Path, RefreshInfoPanel, RedrawMap", With(OBbotKumpi_Click, 2),
            [](MapDocument& m) { m.waypoints[0].path = 2; })}) {
    SCOPED_TRACE(listed + ": " + asked);
    Show(kEdit, listed);
    const PanelContents contents = shown;
    editor.panel.panelRefreshing = true;
    Handle(act);
    EXPECT_TRUE(shown == contents && TakeAsked().empty()) << "not while it is refreshed";
    editor.panel.panelRefreshing = false;
    Show(kEdit, "");
    const bool isStepFirst = asked.starts_with("Step Size") || asked.starts_with("Step Editing");
    Expect(act, (isStepFirst ? asked.substr(0, asked.find("Redraw")) : "") + "Show Problem");
    ExpectRefusal(std::string("You need select at least 1 ") + needed.at(listed[0]));
    Show(kEdit, listed);
    Expect(act, asked, change);
    EXPECT_EQ(TakeMessages(), std::vector(asked.starts_with("Ask") ? 1U : 0U, kPassableQuestion));
    EXPECT_TRUE(drawnUnderGuard) << "no handler inside another";
  }
  EXPECT_THAT(dialogs.colorRequests, ElementsAre(0x030201));
}

TEST_F(PanelHandlersTest, ConnectJoinsCornersOneAxisAfterTheOther) {
  Corner(0, 0) = {0, 0, 1, 1, {}, -0.0625f, 1};  // its u becomes 0 on the way, so v stays
  Corner(0, 1) = {30, 6, 1, 1, {}, 1, 1};
  Corner(0, 2) = {10, 2, 1, 1, {}, 0, 1};  // without a texture
  Show(kEdit, "v0.0 v0.1 v0.0 v0.2");      // one listed twice weighs twice
  Handle(CByhista_Click);
  EXPECT_EQ(TakeAsked(), "Step Connect, RefreshInfoPanel, RedrawMap");
  EXPECT_EQ(Corner(0, 0), (PolygonVertex{10, 2, 1, 1, {}, 0, 1}));
  EXPECT_EQ(Corner(0, 1), (PolygonVertex{10, 2, 1, 1, {}, 1 - 20 / 160.f, 1 - 4 / 120.f}));
  EXPECT_EQ(Corner(0, 2), (PolygonVertex{10, 2, 1, 1, {}, 0, 1}));
  Show(kEdit, "v0.1");
  Expect(CByhista_Click, "Show Problem");
  ExpectRefusal("You need select at least 2 vertices");
  Expect(CBerota_Click, "Show Problem");
  ExpectRefusal("You need select at least 2 vertices.");
}

TEST_F(PanelHandlersTest, DisconnectSpreadsCornersInItsPattern) {
  constexpr std::array<float, 6> kX = {4, -28, 52, -76, 100, -124};
  constexpr std::array<float, 6> kY = {-2, 0, 26, -38, 0, 62};
  editor.view.zoom = 0.25f;
  for (Polygon& polygon : map.polygons.Used()) polygon.vertices.fill({0, 0, 1, 1, {}, 1, 1});
  Corner(1, 1).v = 0;
  Show(kEdit, "v0.0 v0.1 v0.2 v1.0 v1.1 v1.2");
  editor.pointer = PointerShape::kMove;
  Handle(CBerota_Click);
  EXPECT_EQ(TakeAsked(), "Step Disconnect, RefreshInfoPanel, RedrawMap");
  EXPECT_EQ(Pointer(), PointerShape::kDefault);
  EXPECT_EQ(Listed() + shown.Lvalinta, "Nothing");
  for (std::size_t i = 0; i < 6; ++i) {
    const float u = i == 4 ? 1 : 1 + kX[i] / 160;
    const float v = i == 4 ? 0 : 1 + kY[i] / 120;
    EXPECT_EQ(Corner(i < 3 ? 0 : 1, i % 3), (PolygonVertex{kX[i], kY[i], 1, 1, {}, u, v})) << i;
  }
}

}  // namespace
}  // namespace vesmora
