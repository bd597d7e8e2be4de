// What the panel's controls do: the order of check, undo step, dialog, change and redraw.
#include <gmock/gmock.h>

#include <tuple>
#include <utility>

#include "document/geometry.h"
#include "panel/map_handlers.h"
#include "panel/object_handlers.h"
#include "panel/vertex_handlers.h"
#include "support/map_builder.h"
#include "support/panel_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Message kSizeQuestion = {
    "You have select a custom size.\nThis will work but the official MapMaker will not show "
    "custom sized colliders.\nDo you still want continue?",
    "Warning", MessageIcon::kQuestion};

class PanelHandlersTest : public testing::Test, protected PanelBench {};

TEST_F(PanelHandlersTest, NothingHappensWhileThePanelIsRefreshed) {
  Show(ToolMode::kEdit, "v0.0 v1.1 s0 s1 o0 o1 c0 c1 w0 w1");
  const PanelContents contents = shown;
  const DocumentState before = StateOf(map);
  panel.panelRefreshing = true;
  for (const ToolMode tool : {ToolMode::kEdit, ToolMode::kAddScenery, ToolMode::kAddWaypoint}) {
    map.toolIndex = tool;
    for (const Act& act : {Act(CBtausta1_Click),
                           Act(CBtausta2_Click),
                           Act(CBverticevari_Click),
                           Act(CByhista_Click),
                           Act(CBerota_Click),
                           Act(CBtexPalauta_Click),
                           Act(CBtexPoista_Click),
                           Act(CBspawn_DropDown),
                           Act(CBscenery_DropDown),
                           Act(CBscenery2_DropDown),
                           With(CBtexEiKorjaus_Click, true),
                           With(CBverticeLapi_Click, true),
                           With(CBverticeLapi_Click, false),
                           With(CBnayta_Click, 0, false),
                           With(CBnayta_Click, 3, false),
                           With(CBspawn_Click, "CTF Red"),
                           With(CBscenery_Click, "Barrel"),
                           With(CBscenery2_Click, "50%"),
                           With(CBscenery2_Enter, "500"),
                           With(CBcollider_Click, "24"),
                           With(CBcollider_Enter, "13"),
                           With(CBbotValinta_Click, 1, true),
                           With(OBbotKumpi_Click, 2)}) {
      act(context);
    }
  }
  map.toolIndex = ToolMode::kEdit;
  EXPECT_TRUE(StateOf(map) == before);
  EXPECT_EQ(shown, contents);
  EXPECT_EQ(state.tool.value, 0);
  EXPECT_FALSE(state.tool.next.noTextureCorrection);
  EXPECT_EQ(state.tool.next.visibility + state.tool.next.colliderSize, "100%12");
  EXPECT_THAT(state.tool.next.botSettings, ElementsAre(0, 0, 0, 0, 0));
  EXPECT_THAT(state.show.showFlags, ElementsAre(1, 1, 1, 1, 1, 0, 0));
  OBbotNayta_Click(context, 2);  // the exception: a forced choice must take effect
  EXPECT_EQ(state.show.pathFilter, 2);
  EXPECT_TRUE(panel.panelRefreshing);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(PanelHandlersTest, RefusalsInEdit) {
  using Row = std::tuple<const char*, const char*, Act>;
  for (const auto& [listed, reason, act] :
       {Row("", "1 vertice.", CBverticevari_Click),
        Row("", "1 vertice.", With(CBverticeLapi_Click, true)),
        Row("", "1 vertice.", With(CBverticeLapi_Click, false)),
        Row("", "1 vertice.", CBtexPalauta_Click), Row("", "1 vertice.", CBtexPoista_Click),
        Row("", "2 vertices", CByhista_Click), Row("v0.1", "2 vertices", CByhista_Click),
        Row("", "2 vertices.", CBerota_Click), Row("v0.1", "2 vertices.", CBerota_Click),
        Row("", "1 spawnpoint.", With(CBspawn_Click, "CTF Red")),
        Row("", "1 scenery.", With(CBscenery_Click, "Barrel")),
        Row("", "1 scenery.", With(CBscenery2_Click, "50%")),
        Row("", "1 scenery.", With(CBscenery2_Enter, "40")),
        Row("", "1 waypoint.", With(OBbotKumpi_Click, 2))}) {
    Show(ToolMode::kEdit, listed);
    Expect(act, {"Show Problem"});
    ExpectRefusal(std::string("You need select at least ") + reason);
  }
  // These have taken their step by then.
  Expect(With(CBcollider_Click, "24"), {"Step Size", "Show Problem"});
  ExpectRefusal("You need select at least 1 collider.");
  Expect(With(CBbotValinta_Click, 4, true), {"Step Editing", "Show Problem"});
  ExpectRefusal("You need select at least 1 waypoint.");
}

TEST_F(PanelHandlersTest, OneChangeOneStepOneRedraw) {
  for (auto& polygon : map.normals) polygon.edges.fill({0, 0, 3});
  for (auto& corner : map.polygons[0].vertices) corner.u = corner.v = 7;
  const auto textures = [](auto makeU) {
    return [=](MapDocument& document) {
      for (auto& corner : document.polygons[0].vertices) {
        corner.u = makeU(corner.x, 160);
        corner.v = makeU(corner.y, 120);
      }
    };
  };
  const auto spawns = [](std::uint8_t team) {
    return [=](MapDocument& document) { document.spawns[0].team = document.spawns[1].team = team; };
  };
  const auto scenery = [](std::uint8_t type, std::uint8_t level) {
    return [=](MapDocument& document) {
      for (auto* changed : {&document.sceneries[0], &document.sceneries[2]}) {
        if (type != 0) changed->type = type;
        if (level != 0) changed->level = level;
      }
    };
  };
  const auto radius = [](float size) {
    return [=](MapDocument& document) {
      document.colliders[0].radius = document.colliders[1].radius = size;
    };
  };
  const auto bots = [](std::size_t setting, std::uint8_t value) {
    return [=](MapDocument& document) {
      for (const std::size_t i : {0u, 2u}) document.waypoints[i].botSettings[setting] = value;
    };
  };
  const auto makeSolid = [](MapDocument& document) { RecomputeNormals(document, 0); };
  const auto divide = [](float place, float divisor) { return place / divisor; };
  const auto zero = [](float, float) { return 0.f; };
  using Row = std::tuple<const char*, const char*, Act, Change>;
  for (const auto& [listed, step, act, change] :
       {Row("v0.1", "Texture", CBtexPalauta_Click, textures(divide)),
        Row("v0.1 v0.2", "Texture", CBtexPoista_Click, textures(zero)),
        Row("v0.1", "Passable", With(CBverticeLapi_Click, false), makeSolid),
        Row("s0 s1", "Type", With(CBspawn_Click, "CTF Blue"), spawns(2)),
        Row("s0 s1", "Type", With(CBspawn_Click, "CTF Red"), spawns(1)),
        Row("s0 s1", "Type", With(CBspawn_Click, "Many types"), spawns(0)),
        Row("o0 o2", "Type", With(CBscenery_Click, "Grass"), scenery(1, 0)),
        Row("o0 o2", "Type", With(CBscenery_Click, "Big Crate"), scenery(21, 0)),
        Row("o0 o2", "Visibility", With(CBscenery2_Click, "75%"), scenery(0, 191)),
        Row("o0 o2", "Visibility", With(CBscenery2_Click, "50%"), scenery(0, 128)),
        Row("o0 o2", "Visibility", With(CBscenery2_Click, "30%"), scenery(0, 76)),
        Row("o0 o2", "Visibility", With(CBscenery2_Click, "70%"), scenery(0, 178)),
        Row("c0 c1", "Size", With(CBcollider_Click, "24"), radius(24)),
        Row("c0 c1", "Size", With(CBcollider_Click, "2"), radius(2)),
        Row("c0 c1", "Size", With(CBcollider_Click, "998.5"), radius(998.5f)),
        Row("c0 c1", "Size", With(CBcollider_Click, "999"), radius(999)),
        Row("w0 w2", "Editing", With(CBbotValinta_Click, 4, true), bots(4, 1)),
        Row("w0 w2", "Editing", With(CBbotValinta_Click, 0, false), bots(0, 0))}) {
    SCOPED_TRACE(std::string(step) + " " + listed);
    Show(ToolMode::kEdit, listed);
    Expect(act, {std::string("Step ") + step, "RedrawMap"}, change);
    const bool guards = listed[0] == 's' || step == std::string("Visibility");
    EXPECT_EQ(drawnUnderGuard, guards);
  }
  Show(ToolMode::kEdit, "w0 w1");
  Expect(With(OBbotKumpi_Click, 2), {"Step Path", "RedrawMap", "RefreshInfoPanel"},
         [](MapDocument& document) { document.waypoints[0].path = 2; });
  EXPECT_TRUE(shown.OBbotKumpi[1].chosen);
  Show(ToolMode::kEdit, "o0 o1");
  Expect(With(CBscenery_Click, "Many types"), {});  // is no type
}

TEST_F(PanelHandlersTest, BackgroundsTakeTheirStepBeforeTheDialog) {
  map.backgroundColor1 = {1, 2, 3, 4};
  map.backgroundColor2 = {5, 6, 7, 8};
  const EventLog asked = {"Step Background", "ChooseColor", "RefreshInfoPanel", "RedrawMap"};
  for (const ToolMode tool : {ToolMode::kEdit, ToolMode::kAddPolygon, ToolMode::kAddWaypoint}) {
    map.toolIndex = tool;
    dialogs.chosenColors = {0x102030, std::nullopt, 0x405060, 0x050607, 0x010203};
    dialogs.colorRequests.clear();
    Expect(CBtausta1_Click, asked, [](MapDocument& document) {
      document.backgroundColor1 = {0x10, 0x20, 0x30, 4};
    });
    Expect(CBtausta1_Click, asked);
    Expect(CBtausta2_Click, asked, [](MapDocument& document) {
      document.backgroundColor2 = {0x40, 0x50, 0x60, 8};
    });
    EXPECT_THAT(dialogs.colorRequests, ElementsAre(0x010203, 0x102030, 0x050607));
    EXPECT_EQ(shown.CBtausta2.color, (Rgb{0x60, 0x50, 0x40}));
    CBtausta2_Click(context);
    CBtausta1_Click(context);
  }
}

TEST_F(PanelHandlersTest, ShowBoxes) {
  for (int i = 1; i <= 6; ++i) {
    for (const bool isTicked : {false, true}) {
      CBnayta_Click(context, i, isTicked);
      std::array<std::int16_t, 7> flags = {1, 1, 1, 1, 1, 0, 0};
      for (int k = 6; k > i; --k) flags[5] = 0;
      flags[static_cast<std::size_t>(i) - 1] = isTicked ? 1 : 0;
      EXPECT_EQ(state.show.showFlags, flags);
      EXPECT_EQ(shown.CBnayta[static_cast<std::size_t>(i)].tick, isTicked ? Tick::kOn : Tick::kOff);
      EXPECT_THAT(TakeEvents(), ElementsAre("RefreshInfoPanel", "RedrawMap"));
    }
  }
  EXPECT_EQ(shown.CBnayta[0].tick, Tick::kOn);  // all six are
  for (const bool isTicked : {false, true}) {
    state.show.showFlags = {1, 0, 1, 1, 1, 0, 0};
    RefreshInfoPanel(context);
    auto boxes = shown.CBnayta;
    boxes[0].tick = isTicked ? Tick::kOn : Tick::kOff;
    CBnayta_Click(context, 0, isTicked);
    const std::int16_t flag = isTicked ? 1 : 0;
    EXPECT_THAT(state.show.showFlags, ElementsAre(flag, flag, flag, flag, flag, flag, 0));
    EXPECT_EQ(shown.CBnayta, boxes);  // the others' ticks wait for the next refresh
    EXPECT_THAT(TakeEvents(), ElementsAre("RefreshInfoPanel", "RedrawMap"));
    RefreshInfoPanel(context);
    for (const CheckContents& box : shown.CBnayta) EXPECT_EQ(box.tick, boxes[0].tick);
  }
}

TEST_F(PanelHandlersTest, OpenedListsOfferRealValuesOnly) {
  Show(ToolMode::kEdit, "s0 s1 o0 o1");
  CBspawn_DropDown(context);
  CBscenery_DropDown(context);
  CBscenery2_DropDown(context);
  EXPECT_EQ(shown.CBspawn.tag, ListTag::kEmpty);
  EXPECT_EQ(shown.CBscenery.tag, ListTag::kFirst);
  EXPECT_EQ(shown.CBscenery2.tag, ListTag::kFirst);
  EXPECT_EQ(SpawnItems(shown.CBspawn).size(), 3);
  EXPECT_EQ(SceneryItems(shown.CBscenery).size(), 21);
  EXPECT_EQ(VisibilityItems(shown.CBscenery2).size(), 4);
  for (const auto* combo : {&shown.CBspawn, &shown.CBscenery, &shown.CBscenery2}) {
    EXPECT_EQ(combo->text, "Many types");
    EXPECT_TRUE(combo->enabled);
  }
  RefreshInfoPanel(context);
  EXPECT_EQ(SpawnItems(shown.CBspawn).size(), 4);
  EXPECT_EQ(SceneryItems(shown.CBscenery).size(), 22);
  EXPECT_EQ(VisibilityItems(shown.CBscenery2).size(), 5);
  Show(ToolMode::kAddSpawn);
  CBspawn_DropDown(context);
  EXPECT_EQ(shown.CBspawn.tag, ListTag::kThird);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(PanelHandlersTest, TypedVisibility) {
  using Row = std::tuple<const char*, const char*, int>;  // what is typed, shown, stored
  constexpr int kRefused = -1;
  for (const auto& [typed, text, level] :
       {Row("40", "40%", 102), Row("40%", "40%", 102), Row(" 33.3 x", "33.3%", 85),
        Row("0", "0%", 0), Row("100", "100%", 255), Row("1.5", "1.5%", 4), Row("40,9", "40%", 102),
        Row("nan", "0%", 0), Row("", "0%", 0), Row("-1", "100%", kRefused),
        Row("100.01", "100%", kRefused), Row("500%", "100%", kRefused)}) {
    SCOPED_TRACE(typed);
    map.sceneries[0].level = map.sceneries[1].level = 9;
    Show(ToolMode::kEdit, "o0 o1");
    if (level == kRefused) {
      Expect(With(CBscenery2_Enter, typed), {"Show Problem"});
      ExpectRefusal("Size is out of the limit.");
    } else {
      const auto byte = static_cast<std::uint8_t>(level);
      Expect(With(CBscenery2_Enter, typed), {"Step Visibility", "RedrawMap"},
             [byte](MapDocument& document) {
               document.sceneries[0].level = document.sceneries[1].level = byte;
             });
    }
    EXPECT_EQ(shown.CBscenery2.text, text);
  }
  // In the Add tool the next scenery gets what the box shows, whatever came before.
  map.lastScenery = -1;
  Choose(ToolMode::kAddScenery);
  Expect(With(CBscenery2_Enter, "40"), {"RedrawMap"});
  EXPECT_EQ(state.tool.next.visibility, "40%");
  Expect(With(CBscenery2_Enter, "101"), {"Show Problem"});
  EXPECT_EQ(shown.CBscenery2.text, "100%");
  EXPECT_EQ(state.tool.next.visibility, "100%");
}

TEST_F(PanelHandlersTest, TypedColliderSize) {
  const EventLog none = {"Show Problem"};
  const EventLog plain = {"Step Size", "RedrawMap"};
  const EventLog custom = {"Ask Warning", "Step Size", "RedrawMap"};
  const EventLog cancelled = {"Ask Warning"};
  using Row = std::tuple<const char*, EventLog, float>;  // the size after it
  for (const auto& [typed, asked, size] :
       {Row("12", plain, 12.f), Row("16", plain, 16.f), Row("24", plain, 24.f),
        Row("32", plain, 32.f), Row("12.5", custom, 12.5f), Row("12.5", cancelled, 77.f),
        Row("2", custom, 2.f), Row("999", custom, 999.f), Row("1", none, 77.f),
        Row("1.99", none, 77.f), Row("999.5", none, 77.f), Row("-16", none, 77.f),
        Row("1e30", none, 77.f), Row("x", none, 77.f), Row("", none, 77.f)}) {
    SCOPED_TRACE(typed);
    map.colliders[1].radius = 77;
    Show(ToolMode::kEdit, "c1");
    dialogs.answers.assign(1, asked == custom);
    const float after = size;
    Expect(With(CBcollider_Enter, typed), asked,
           [after](MapDocument& document) { document.colliders[1].radius = after; });
    EXPECT_EQ(shown.CBcollider.text, size == 77 ? "12" : typed);
    if (asked == none) ExpectRefusal("Size is out of the limit.");
    EXPECT_EQ(std::exchange(dialogs.messages, {}),
              std::vector<Message>(asked[0] == "Ask Warning" ? 1 : 0, kSizeQuestion));
  }
  // From the list no question is asked, and what is no size comes after the step.
  for (const char* size : {"1", "1000", "x"}) {
    Show(ToolMode::kEdit, "c1");
    Expect(With(CBcollider_Click, size), {"Step Size", "Show Problem"});
    ExpectRefusal("Size is out of the limit.");
    EXPECT_EQ(shown.CBcollider.text, "12");
  }
}

TEST_F(PanelHandlersTest, AddToolsOnlyPrepareTheNextObject) {
  const EventLog redraw = {"RedrawMap"};
  const EventLog custom = {"Ask Warning", "RedrawMap"};
  dialogs.answers = {true, true, false};
  using Row = std::tuple<ToolMode, Act, int, EventLog>;
  for (const auto& [tool, act, value, asked] :
       {Row(ToolMode::kAddSpawn, With(CBspawn_Click, "CTF Red"), 1, redraw),
        Row(ToolMode::kAddSpawn, With(CBspawn_Click, "Normal"), 0, redraw),
        Row(ToolMode::kAddScenery, With(CBscenery_Click, "Liana"), 5, redraw),
        Row(ToolMode::kAddScenery, With(CBscenery_Click, "Big Crate"), 21, redraw),
        Row(ToolMode::kAddScenery, With(CBscenery2_Click, "50%"), 17, redraw),
        Row(ToolMode::kAddCollider, With(CBcollider_Click, "24"), 24, redraw),
        Row(ToolMode::kAddCollider, With(CBcollider_Enter, "12.5"), 12, custom),
        Row(ToolMode::kAddCollider, With(CBcollider_Enter, "13.5"), 14, custom),
        Row(ToolMode::kAddCollider, With(CBcollider_Enter, "33"), 20, {"Ask Warning"}),
        Row(ToolMode::kAddCollider, With(CBcollider_Enter, "1"), 20, {"Show Problem"}),
        Row(ToolMode::kAddWaypoint, With(OBbotKumpi_Click, 1), 1,
            {"RedrawMap", "RefreshInfoPanel"}),
        Row(ToolMode::kAddWaypoint, With(CBbotValinta_Click, 2, true), 2, redraw)}) {
    Choose(tool);
    SCOPED_TRACE(value);
    Expect(act, asked);
    EXPECT_EQ(state.tool.value, value);
  }
  EXPECT_EQ(state.tool.next.visibility, "50%");
  EXPECT_THAT(state.tool.next.botSettings, ElementsAre(1, 0, 1, 1, 0));
  EXPECT_EQ(shown.CBbotValinta[2].tick, Tick::kOn);
  EXPECT_THAT(TakeEvents(), IsEmpty());
}

TEST_F(PanelHandlersTest, SwitchesOfThePanelAlone) {
  Show(ToolMode::kEdit, "v0.0 w0");
  Expect(With(CBtexEiKorjaus_Click, true), {});
  EXPECT_TRUE(state.tool.next.noTextureCorrection);
  EXPECT_EQ(shown.CBtexEiKorjaus.tick, Tick::kOn);
  Expect(With(CBtexEiKorjaus_Click, false), {});
  EXPECT_FALSE(state.tool.next.noTextureCorrection);

  Expect(With(OBbotNayta_Click, 2), {"RedrawMap"});
  EXPECT_EQ(state.show.pathFilter, 2);
  EXPECT_EQ(Listed(), "v0.0 w0");  // hidden now, but still selected
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(shown.OBbotNayta[i].chosen, i == 2);
}

}  // namespace
}  // namespace vesmora
