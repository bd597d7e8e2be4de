// What the panel shows, in every tool and for every kind of selection.
#include "panel/panel_contents.h"

#include <gmock/gmock.h>

#include <limits>

#include "document/scenery_types.h"
#include "support/map_builder.h"
#include "support/panel_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kTools = {ToolMode::kEdit,        ToolMode::kAddPolygon,
                               ToolMode::kAddSpawn,    ToolMode::kAddScenery,
                               ToolMode::kAddCollider, ToolMode::kAddWaypoint};
constexpr std::array kAddTools = {ToolMode::kAddPolygon, ToolMode::kAddSpawn, ToolMode::kAddScenery,
                                  ToolMode::kAddCollider, ToolMode::kAddWaypoint};

/// One letter a control: '.' off, '+' on, '~' grey; 'x' and '-' are '+' and '.' disabled.
char Sign(const CheckContents& box) {
  if (box.tick == Tick::kMixed) return box.enabled ? '~' : '?';
  return box.tick == Tick::kOn ? (box.enabled ? '+' : 'x') : (box.enabled ? '.' : '-');
}
char Sign(const OptionContents& option) {
  return option.chosen ? (option.enabled ? '+' : 'x') : (option.enabled ? '.' : '-');
}
char Sign(const ButtonContents& button) { return button.enabled ? '.' : '-'; }

template <typename Controls>
std::string Signs(const Controls& controls) {
  std::string signs;
  for (const auto& control : controls) signs += Sign(control);
  return signs;
}

/// "<tag> <text>", in brackets when disabled.
std::string Describe(const ComboContents& combo) {
  const std::string text = std::to_string(static_cast<int>(combo.tag)) + " " + combo.text;
  return combo.enabled ? text : "(" + text + ")";
}

class PanelContentsTest : public testing::Test, protected PanelBench {
 protected:
  /// Color, Connect, Disconnect, No texture correction, Restore, Delete, Passable.
  std::string VertexSigns() const {
    return {Sign(shown.CBverticevari),  Sign(shown.CByhista),     Sign(shown.CBerota),
            Sign(shown.CBtexEiKorjaus), Sign(shown.CBtexPalauta), Sign(shown.CBtexPoista),
            Sign(shown.CBverticeLapi)};
  }
};

TEST_F(PanelContentsTest, MapName) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [path, name] :
       {Row("", ""), Row("a.pmp", ""), Row("ab.pmp", "AB"), Row("/maps/Arena.pmp", "ARENA"),
        Row("/maps.old/a.b.pmp", "A.B"), Row(R"(C:\maps\Arena.PMP)", "ARENA"),
        Row(R"(C:\maps/x\y.pmp)", "Y"), Row("/maps/.pmp", ""), Row("/maps/", ""),
        Row("/maps/abc", ""), Row("/maps/h\xC3\xB6hle \xC3\xBF.pmp", "H\xC3\x96HLE \xC3\xBF"),
        Row("/maps/a\xC3\xA9xyz", "A"),  // four characters are cut off, not four bytes
        Row("/maps/a&b<b>\n.pmp", "A&B<B>\n"), Row("/maps/%1%s.pmp", "%1%S")}) {
    map.fileName = path;
    Show(ToolMode::kEdit);
    EXPECT_EQ(shown.Lkartta1, std::string("Name: ") + name + "\nAuthor: \nTexture: ") << path;
  }
}

TEST_F(PanelContentsTest, TextureAndAuthor) {
  using Row = std::pair<std::string, const char*>;
  for (const auto& [texture, text] :
       {Row("", ""), Row("a.b", ""), Row("abcd", "abcd"), Row("Banana.BMP", "banana.bmp"),
        Row("wall.jpeg", "wall.jpe"), Row("a.b.c.d.e", "a.b.c"), Row("long.p", "long.p"),
        Row("ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz"),
        Row("ABCDEFGHIJKLMNOPQRSTUV.BMP", "abcdefghijklmnopqrstuv.bmp"),
        Row(std::string("grass\0.bmp", 10), "grass"), Row(std::string("abc\0wall.bmp", 12), ""),
        Row("\xC4rger.bmp", "\xC3\xA4rger.bmp")}) {
    map.texture = MakeTextureName(texture);
    Show(ToolMode::kEdit);
    EXPECT_EQ(shown.Lkartta1, std::string("Name: \nAuthor: \nTexture: ") + text) << texture;
  }
  for (const auto& [author, text] : {Row("", ""), Row("  Ann B  ", "Ann B"), Row("   ", ""),
                                     Row("\tX ", "\tX"), Row("\xC9ric", "\xC3\x89ric")}) {
    map.author = author;
    Show(ToolMode::kEdit);
    EXPECT_EQ(shown.lAuthor, text);
  }
}

TEST_F(PanelContentsTest, FillLevelsAndBackgrounds) {
  map = {};
  map.backgroundColor1 = {1, 2, 3, 4};
  map.backgroundColor2 = {255, 0, 7, 0};
  Show(ToolMode::kEdit);
  EXPECT_EQ(shown.Lkartta2,
            "0/400 Polygons\n0/30 Spawns\n0/255 Sceneries\n0/128 Colliders\n0/500 Waypoints");
  EXPECT_EQ(shown.CBtausta1, (ButtonContents{true, Rgb{3, 2, 1}}));
  EXPECT_EQ(shown.CBtausta2, (ButtonContents{true, Rgb{7, 0, 255}}));
  map.lastPolygon = 399;
  map.lastSpawn = 29;
  map.lastScenery = 254;
  map.lastCollider = 127;
  map.lastWaypoint = 499;
  Show(ToolMode::kEdit);
  EXPECT_EQ(
      shown.Lkartta2,
      "400/400 Polygons\n30/30 Spawns\n255/255 Sceneries\n128/128 Colliders\n500/500 Waypoints");
}

TEST_F(PanelContentsTest, ShowBoxesFollowTheFlagsAndAllNeedsTheSeventhClear) {
  for (int bits = 0; bits < 128; ++bits) {
    for (std::size_t i = 0; i < 7; ++i) state.show.showFlags[i] = (bits >> i & 1) != 0 ? 1 : 0;
    Show(ToolMode::kEdit);
    for (std::size_t i = 0; i < 6; ++i) {
      EXPECT_EQ(shown.CBnayta[i + 1].tick, (bits >> i & 1) != 0 ? Tick::kOn : Tick::kOff);
    }
    EXPECT_EQ(shown.CBnayta[0].tick, bits == 63 ? Tick::kOn : Tick::kOff) << bits;
  }
  state.show = {};
  const std::array signs = {".+++++.", "-x++++.", "-+x+++.", "-++x++.", "-+++x+.", "-++++x."};
  for (const ToolMode tool : kTools) {
    Show(tool);
    EXPECT_EQ(Signs(shown.CBnayta), signs[static_cast<std::size_t>(tool)]);
  }
}

TEST_F(PanelContentsTest, SelectionSummary) {
  using Row = std::array<const char*, 3>;
  for (const auto& [listed, count, text] :
       {Row{"", "0", "Nothing"}, Row{"v0.0", "1", "1 Vertice\n"},
        Row{"v0.0 v0.1", "2", "2 Vertices\n"}, Row{"v0.0 v0.0 v0.0", "3", "3 Vertices\n"},
        Row{"s0", "1", "1 Spawn\n"}, Row{"w0", "1", "1 Waypoint"}, Row{"o0", "1", "1 Scenery\n"},
        Row{"c0", "1", "1 Collider"}, Row{"w0 w1 o0", "3", "2 Waypoints1 Scenery\n"},
        Row{"v1.2 s0 o2 c1 w1", "5", "1 Vertice\n1 Spawn\n1 Waypoint1 Scenery\n1 Collider"},
        Row{"v1.2 v1.1 s0 s1 o2 o0 c1 c0 w1 w0", "10",
            "2 Vertices\n2 Spawns\n2 Waypoints2 Sceneries\n2 Colliders"}}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(shown.Fvalinta, std::string("Selected ") + count);
    EXPECT_EQ(shown.Lvalinta, text);
  }
}

TEST_F(PanelContentsTest, VertexControls) {
  map.normals[0].edges[1] = {0, 0, 1};  // of corner 1 alone
  map.normals[1].edges[0] = {0, -0.5f, 0};
  for (auto& polygon : map.polygons) {
    for (auto& corner : polygon.vertices) corner.color = {30, 20, 10, 255};
  }
  map.polygons[0].vertices[2].color = {30, 20, 10, 7};  // other alpha only
  map.polygons[1].vertices[0].color = {31, 20, 10, 255};
  map.polygons[1].vertices[1].color = {30, 21, 10, 255};
  map.polygons[1].vertices[2].color = {30, 20, 11, 255};
  const std::optional<Rgb> common = Rgb{10, 20, 30};
  const std::optional<Rgb> neutral;
  using Row = std::tuple<const char*, const char*, std::optional<Rgb>>;
  for (const auto& [listed, signs, color] :
       {Row("", "-------", neutral), Row("s0 o0 c0 w0", "-------", neutral),
        Row("v0.0", ".--....", common), Row("v0.1", ".--...+", common),
        Row("v1.0", ".--....", Rgb{10, 20, 31}), Row("v0.1 v0.1", "......+", common),
        Row("v0.0 v0.2", ".......", common), Row("v0.0 v0.1", "......~", common),
        Row("v0.1 v0.0 v0.1", "......~", common), Row("v0.0 v1.0", ".......", neutral),
        Row("v0.0 v1.1", ".......", neutral), Row("v0.0 v1.2", ".......", neutral),
        Row("v0.1 v0.2 v1.2", "......~", neutral)}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(VertexSigns(), signs) << listed;
    EXPECT_EQ(shown.CBverticevari.color, color) << listed;
  }
  state.tool.next.vertexColor = {9, 8, 7};
  state.tool.next.noTextureCorrection = true;
  for (const ToolMode tool : kAddTools) {
    Show(ToolMode::kEdit, "v0.1 v0.2");
    EXPECT_EQ(VertexSigns(), "...+..~");
    Show(tool, "v0.1");
    const bool isPolygon = tool == ToolMode::kAddPolygon;
    EXPECT_EQ(VertexSigns(), isPolygon ? ".--x---" : "---x---");
    EXPECT_EQ(shown.CBverticevari.color, isPolygon ? std::optional(Rgb{9, 8, 7}) : neutral);
  }
}

TEST_F(PanelContentsTest, SpawnType) {
  const std::vector<std::string_view> types = {"Normal", "CTF Red", "CTF Blue"};
  map.spawns[2].team = 2;
  AddSpawn(map, 9, 9, 2);
  AddSpawn(map, 9, 9, 7);
  // The same box all along: the lists must change with what is selected.
  using Row = std::pair<const char*, const char*>;
  for (const auto& [listed, combo] :
       {Row("", "(0 )"), Row("s0", "2 Normal"), Row("s0 s1", "1 Many types"),
        Row("s3 s2", "1 CTF Blue"), Row("s1", "2 CTF Red"), Row("s2 s3 s1", "1 Many types"),
        Row("s2", "2 CTF Blue"), Row("s4", "2 "), Row("v0.0 o0 c0 w0", "(0 )")}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(Describe(shown.CBspawn), combo) << listed;
    auto items = shown.CBspawn.enabled ? types : std::vector<std::string_view>{};
    if (combo[0] == '1') items.push_back("Many types");
    EXPECT_EQ(SpawnItems(shown.CBspawn), items) << listed;
  }
  for (const ToolMode tool : kAddTools) {
    Show(ToolMode::kEdit, "s0 s1");
    state.tool.value = 0;
    Show(tool, "s0");
    const bool isSpawn = tool == ToolMode::kAddSpawn;
    EXPECT_EQ(Describe(shown.CBspawn), isSpawn ? "3 Normal" : "(0 )");
    EXPECT_EQ(SpawnItems(shown.CBspawn), isSpawn ? types : std::vector<std::string_view>{});
    state.tool.value = 2;  // a chosen team stays through refreshes
    Show(tool);
    EXPECT_EQ(Describe(shown.CBspawn), isSpawn ? "3 CTF Blue" : "(0 )");
  }
}

TEST_F(PanelContentsTest, SceneryTypeAndVisibility) {
  AddScenery(map, 0, 0, 22).level = 64;  // a type of no name
  AddScenery(map, 0, 0, 17).level = 128;
  using Row = std::array<const char*, 3>;
  for (const auto& [listed, type, visibility] :
       {Row{"", "(0 )", "(0 )"}, Row{"o0", "1 Grass", "1 100%"}, Row{"o1", "1 Barrel", "1 78%"},
        Row{"o0 o1", "2 Many types", "2 Many types"}, Row{"o1 o2", "2 Barrel", "2 78%"},
        Row{"o1 o4", "2 Barrel", "2 Many types"}, Row{"o3", "1 ", "1 25%"},
        Row{"o4", "1 Barrel", "1 50%"}, Row{"v0.0 s0 c0 w0", "(0 )", "(0 )"}}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(Describe(shown.CBscenery), type) << listed;
    EXPECT_EQ(Describe(shown.CBscenery2), visibility) << listed;
    const bool many = type[0] == '2';
    std::vector<std::string_view> names;
    for (const SceneryType& row : kSceneryTypes) names.push_back(row.name);
    names.erase(names.begin());  // the nameless one
    if (many) names.push_back("Many types");
    std::vector<std::string_view> percentages = {"100%", "75%", "50%", "25%"};
    if (many) percentages.push_back("Many types");
    if (!shown.CBscenery.enabled) names = percentages = {};
    EXPECT_EQ(SceneryItems(shown.CBscenery), names) << listed;
    EXPECT_EQ(VisibilityItems(shown.CBscenery2), percentages) << listed;
  }
  map.sceneries[4].level = 191;
  for (const ToolMode tool : kAddTools) {
    const bool isScenery = tool == ToolMode::kAddScenery;
    Show(ToolMode::kEdit, "o0 o1");
    state.tool.value = 5;
    Show(tool, "o0");
    EXPECT_EQ(Describe(shown.CBscenery), isScenery ? "1 Liana" : "(0 )");
    EXPECT_EQ(Describe(shown.CBscenery2), isScenery ? "3 75%" : "(0 )");
    EXPECT_THAT(VisibilityItems(shown.CBscenery2).size(), isScenery ? 4 : 0);
  }
  EXPECT_EQ(state.tool.next.visibility, "75%");
  Show(ToolMode::kAddScenery);
  state.tool.value = kNoToolValue;
  Show(ToolMode::kAddScenery);
  EXPECT_FALSE(shown.CBscenery.enabled);
  EXPECT_FALSE(shown.CBscenery2.enabled);
  map.lastScenery = -1;
  state.tool.value = 1;
  Show(ToolMode::kAddScenery);
  EXPECT_EQ(Describe(shown.CBscenery2), "3 100%");
  EXPECT_EQ(state.tool.next.visibility, "100%");
}

TEST_F(PanelContentsTest, ColliderSize) {
  AddCollider(map, 0, 0, 0.1f);
  AddCollider(map, 0, 0, 999);
  using Row = std::pair<const char*, const char*>;
  for (const auto& [listed, text] : {Row("c0", "12"), Row("c1", "20.5"), Row("c0 c1", ""),
                                     Row("c2 c1", "20.5"), Row("c3", "0.1"), Row("c4", "999")}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(shown.CBcollider.text, text) << listed;
    EXPECT_TRUE(shown.CBcollider.enabled);
  }
  for (const ToolMode tool : kTools) {
    const bool isCollider = tool == ToolMode::kAddCollider;
    Show(ToolMode::kEdit, "c0");
    state.tool.next.colliderSize = "24";
    Show(tool, tool == ToolMode::kEdit ? "v0.0 s0 o0 w0" : "c0");
    EXPECT_EQ(shown.CBcollider.text, isCollider ? "24" : "");
    EXPECT_EQ(shown.CBcollider.enabled, isCollider);
  }
}

TEST_F(PanelContentsTest, WaypointPathAndBotSettings) {
  map.waypoints[2].botSettings = {1, 0, 0, 1, 1};
  AddWaypoint(map, 0, 0, 3).botSettings = {0, 0, 0, 0, 2};
  using Row = std::array<const char*, 3>;
  for (const auto& [listed, path, settings] :
       {Row{"", "--", "-----"}, Row{"w0", "+.", "+.+.."}, Row{"w1", ".+", "+..+."},
        Row{"w0 w1", "..", "+.~~."}, Row{"w1 w2", ".+", "+..+~"}, Row{"w3", "..", "....+"},
        Row{"w2 w3 w0", "..", "~.~~~"}, Row{"v0.0 s0 o0 c0", "--", "-----"}}) {
    Show(ToolMode::kEdit, listed);
    EXPECT_EQ(Signs(shown.OBbotKumpi), path) << listed;
    EXPECT_EQ(Signs(shown.CBbotValinta), settings) << listed;
  }
  for (const ToolMode tool : kAddTools) {
    if (tool == ToolMode::kAddWaypoint) continue;
    Show(ToolMode::kEdit, "w0");
    Show(tool, "w0");
    EXPECT_EQ(Signs(shown.OBbotKumpi), "--");
    EXPECT_EQ(Signs(shown.CBbotValinta), "-----");
  }
}

TEST_F(PanelContentsTest, TheHoveredWaypointShowsItsPathAndLendsItsSettings) {
  state.tool.value = 2;
  state.tool.next.botSettings = {0, 1, 0, 0, 1};
  Show(ToolMode::kAddWaypoint);
  EXPECT_EQ(Signs(shown.OBbotKumpi), ".+");
  EXPECT_EQ(Signs(shown.CBbotValinta), ".+..+");
  Show(ToolMode::kAddWaypoint, "w0");
  EXPECT_EQ(Signs(shown.OBbotKumpi), "+.");
  EXPECT_EQ(Signs(shown.CBbotValinta), "+.+..");
  EXPECT_EQ(state.tool.value, 2);
  Show(ToolMode::kAddWaypoint);
  EXPECT_EQ(Signs(shown.OBbotKumpi), ".+");
  EXPECT_EQ(Signs(shown.CBbotValinta), "+.+..");
  EXPECT_THAT(state.tool.next.botSettings, ElementsAre(1, 0, 1, 0, 0));
}

TEST_F(PanelContentsTest, BotBoxesAreCleanAfterAnotherTool) {
  map.lastWaypoint = -1;
  Choose(ToolMode::kAddWaypoint);
  state.tool.next.botSettings = {1, 0, 0, 0, 1};
  Choose(ToolMode::kAddSpawn);
  EXPECT_EQ(Signs(shown.CBbotValinta), "-----");
  Choose(ToolMode::kAddWaypoint);
  EXPECT_EQ(Signs(shown.CBbotValinta), ".....");
  EXPECT_THAT(state.tool.next.botSettings, ElementsAre(0, 0, 0, 0, 0));
}

TEST_F(PanelContentsTest, ThePathBeingAddedToCannotBeHidden) {
  constexpr ToolMode kAdding = ToolMode::kAddWaypoint;
  using Row = std::tuple<ToolMode, std::int16_t, std::int16_t, const char*, int>;
  for (const auto& [tool, path, filter, signs, after] :
       {Row(kAdding, 1, 0, "+.-", 0), Row(kAdding, 1, 1, ".+-", 1), Row(kAdding, 1, 2, "+.-", 0),
        Row(kAdding, 2, 0, "+-.", 0), Row(kAdding, 2, 1, "+-.", 0), Row(kAdding, 2, 2, ".-+", 2),
        Row(ToolMode::kEdit, 1, 2, "..+", 2), Row(ToolMode::kAddSpawn, 1, 2, "..+", 2),
        Row(ToolMode::kAddScenery, 2, 1, ".+.", 1)}) {
    state.tool.value = path;
    state.show.pathFilter = filter;
    Show(tool, tool == ToolMode::kEdit ? "w0" : "");
    EXPECT_EQ(Signs(shown.OBbotNayta), signs);
    EXPECT_EQ(state.show.pathFilter, after);
  }
  for (const std::int16_t flag : {std::int16_t{0}, std::int16_t{2}}) {
    state.show.showFlags[4] = flag;
    state.show.pathFilter = 1;
    Show(ToolMode::kEdit, "w1");
    EXPECT_EQ(Signs(shown.OBbotNayta), "-x-");
  }
}

TEST_F(PanelContentsTest, TheAddToolsFrameIsHighlighted) {
  for (const ToolMode tool : kTools) {
    Show(tool);
    EXPECT_EQ(shown.highlightedTool, tool);
  }
}

/// Also when every table is full of what no editor writes.
TEST_F(PanelContentsTest, RefreshingIsStableAndEditsNothing) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  map = {};
  map.texture.fill('\xFF');
  while (map.lastPolygon < 399) AddTriangle(map, {{{kNan, 1e30f}, {-1e30f, 0}, {0, kNan}}});
  for (auto& normals : map.normals) normals.edges.fill({kNan, -0.0f, kNan});
  while (map.lastSpawn < 29) AddSpawn(map, 0, 0, 255);
  while (map.lastScenery < 254) AddScenery(map, kNan, 0, 255).level = 1;
  while (map.lastCollider < 127) AddCollider(map, 0, 0, kNan);
  while (map.lastWaypoint < 499) AddWaypoint(map, 0, 0, -5).botSettings.fill(255);
  SelectEverything(selection, map);
  for (const ToolMode tool : kTools) {
    for (const std::int16_t value : {std::int16_t{2}, std::int16_t{-9999}, std::int16_t{32767}}) {
      map.toolIndex = tool;
      state.tool.value = value;
      const DocumentState before = StateOf(map);
      RefreshInfoPanel(context);
      const PanelContents first = shown;
      RefreshInfoPanel(context);
      EXPECT_EQ(shown, first) << static_cast<int>(tool);
      EXPECT_EQ(StateOf(map), before);
      EXPECT_FALSE(panel.panelRefreshing);
    }
  }
  EXPECT_THAT(TakeEvents(), IsEmpty());
  map.toolIndex = ToolMode::kEdit;
  RefreshInfoPanel(context);
  EXPECT_EQ(VertexSigns(), ".......");
  EXPECT_EQ(shown.Fvalinta, "Selected 2113");
}

}  // namespace
}  // namespace vesmora
