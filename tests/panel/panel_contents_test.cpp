// What the panel shows, in every tool and for every kind of selection.
#include "panel/panel_contents.h"

#include <gtest/gtest.h>

#include "support/map_builder.h"
#include "support/panel_bench.h"

namespace vesmora {
namespace {

constexpr auto kEdit = ToolMode::kEdit;
constexpr auto kAddWaypoint = ToolMode::kAddWaypoint;

// One letter a control: '.' off, '+' on, '~' grey; '-' and 'x' are '.' and '+' disabled.
char Sign(Tick tick, bool enabled) {
  if (tick == Tick::kMixed) return enabled ? '~' : '?';
  return tick == Tick::kOn ? (enabled ? '+' : 'x') : (enabled ? '.' : '-');
}
char Sign(const CheckContents& box) { return Sign(box.tick, box.enabled); }
char Sign(const ButtonContents& button) { return Sign(Tick::kOff, button.enabled); }
char Sign(const OptionContents& option) {
  return Sign(option.chosen ? Tick::kOn : Tick::kOff, option.enabled);
}

template <typename Controls>
std::string Signs(const Controls& controls) {
  std::string signs;
  for (const auto& control : controls) signs += Sign(control);
  return signs;
}

class PanelContentsTest : public testing::Test, protected PanelBench {
 protected:
  /// Color, Connect, Disconnect, No texture correction, Restore, Delete, Passable and the blue
  /// of the colour; lists as "<list> <text>", in brackets when disabled; path and bot settings.
  std::string Objects() const {
    std::string text = {Sign(shown.CBverticevari), Sign(shown.CByhista),
                        Sign(shown.CBerota),       Sign(shown.CBtexEiKorjaus),
                        Sign(shown.CBtexPalauta),  Sign(shown.CBtexPoista),
                        Sign(shown.CBverticeLapi)};
    const auto& color = shown.CBverticevari.color;
    text += color ? std::to_string(color->blue) : "";
    for (const auto* combo :
         {&shown.CBspawn, &shown.CBscenery, &shown.CBscenery2, &shown.CBcollider}) {
      const std::string held = std::to_string(static_cast<int>(combo->list)) + " " + combo->text;
      text += combo->enabled                 ? ", " + held
              : held == "0 " || held == "1 " ? ","
                                             : ", (" + held + ")";
    }
    return text + ", " + Signs(shown.OBbotKumpi) + " " + Signs(shown.CBbotValinta);
  }
};

TEST_F(PanelContentsTest, NamesAndLevels) {
  using Row = std::tuple<const char*, std::string, const char*>;
  for (const auto& [path, texture, shownAs] :
       {Row("a.pmp", "a.b", "|"), Row("/maps.old/a.b.pmp", "wall.jpeg", "A.B|wall.jpe"),
        Row(R"(C:\maps/x\y.PMP)", std::string("abc\0wall.bmp", 12), "Y|"),
        Row("/maps/h\xC3\xB6hle.pmp", "\xC4rger.bmp", "H\xC3\x96HLE|\xC3\xA4rger.bmp"),
        Row("/maps/a\xC3\xA9xyz", "ABCD.BMP", "A|abcd.bmp")}) {  // four characters, not bytes
    map.fileName = path;
    map.texture = MakeTextureName(texture);
    Show(kEdit);
    std::string expected = shownAs;
    expected.replace(expected.find('|'), 1, "\nAuthor: \nTexture: ");
    EXPECT_EQ(shown.Lkartta1, "Name: " + expected) << path;
  }
  map.author = "  \xC9ric B  ";
  map.backgroundColor1 = {1, 2, 3, 4};
  map.polygons.last = 399;
  map.spawns.last = -1;
  map.sceneries.last = 253;
  Show(ToolMode::kAddSpawn, "c0 c1 w0");
  EXPECT_EQ(shown.lAuthor, "\xC3\x89ric B");
  EXPECT_EQ(shown.CBtausta1, (ButtonContents{true, Rgb{3, 2, 1}}));
  EXPECT_EQ(shown.Lkartta2,
            "400/400 Polygons\n0/30 Spawns\n254/255 Sceneries\n3/128 Colliders\n3/500 Waypoints");
  EXPECT_EQ(shown.Fvalinta + shown.Lvalinta, "Selected 31 Waypoint2 Colliders");
  Show(kEdit, "v1.2 s0 s1 o2 w1 w2");
  EXPECT_EQ(shown.Lvalinta, "1 Vertice\n2 Spawns\n2 Waypoints1 Scenery\n");
}

TEST_F(PanelContentsTest, ShowBoxesFollowTheFlagsAndAllNeedsTheSeventhClear) {
  for (const unsigned bits : {0U, 21U, 62U, 63U, 127U}) {
    std::string signs = bits == 63 ? "+" : ".";
    for (std::size_t i = 0; i < 7; ++i) {
      editor.show.showFlags[i] = static_cast<std::int16_t>(bits >> i & 1U);
      if (i < 6) signs += editor.show.showFlags[i] == 0 ? '.' : '+';
    }
    Show(kEdit);
    EXPECT_EQ(Signs(shown.CBnayta), signs) << bits;
  }
  editor.show = {};
  int tool = 1;
  for (const char* signs : {"-x++++.", "-+x+++.", "-++x++.", "-+++x+.", "-++++x."}) {
    Show(static_cast<ToolMode>(tool++));
    EXPECT_EQ(Signs(shown.CBnayta), signs);
  }
}

TEST_F(PanelContentsTest, WhatTheSelectedShareAndWhatTheNextOneGets) {
  map.polygons[0].edges[1] = {0, 0, 1};  // of corner 1 alone
  map.polygons[1].edges[0] = {0, -0.5f, 0};
  for (auto& polygon : map.polygons.Used()) {
    for (auto& corner : polygon.vertices) corner.color = {30, 20, 10, 255};
  }
  map.polygons[0].vertices[2].color.alpha = 7;
  map.polygons[1].vertices[0].color.blue = 31;
  map.polygons[1].vertices[1].color.green = 21;
  map.polygons[1].vertices[2].color.red = 11;
  map.spawns[2].team = 2;
  AddSpawn(map, 9, 9, 3);                // a team of no name
  AddScenery(map, 0, 0, 22).level = 64;  // a type of no name
  AddScenery(map, 0, 0, 17).level = 128;
  AddSpawn(map, 9, 9, 3);
  AddScenery(map, 0, 0, 22).level = 128;
  AddCollider(map, 0, 0, 0.1f);
  map.waypoints[2].botSettings = {1, 0, 0, 1, 1};
  AddWaypoint(map, 0, 0, 3).botSettings = {0, 0, 0, 0, 2};
  using Row = std::tuple<int, const char*, const char*>;
  editor.tool.value = 2;
  editor.tool.next = {.vertexColor = {9, 8, 7},
                      .visibility = {},
                      .colliderSize = "24",
                      .botSettings = {0, 1, 0, 0, 1},
                      .noTextureCorrection = true};
  for (const auto& [tool, listed, objects] :
       {Row(0, "", "---x---,,,,, -- -----"),
        Row(0, "v0.1 s0 o0 c0 w0", ".--+..+30, 1 Normal, 1 Grass, 1 100%, 1 12, +. +.+.."),
        Row(0, "v1.0 s1 o1 c1 w1", ".--+...31, 1 CTF Red, 1 Barrel, 1 78%, 1 20.5, .+ +..+."),
        Row(0, "v0.1 v0.1 s0 s1 o0 o1 c0 c1 w0 w1",
            "...+..+30, 2 Many types, 2 Many types, 2 Many types, 1 , .. +.~~."),
        Row(0, "v0.1 v0.0 v0.1 s2 s1 o1 o4 c3 w2 w3 w0",
            "...+..~30, 2 Many types, 2 Barrel, 2 Many types, 1 0.1, .. ~.~~~"),
        Row(0, "v0.0 v1.0 s3 o3 w3", "...+..., 1 , 1 , 1 25%,, .. ....~"),
        Row(0, "s3 s4 o3 o5", "---x---, 2 Many types, 2 Many types, 2 Many types,, -- -----"),
        Row(0, "v0.0 v1.1 o4", "...+...,, 1 Barrel, 1 50%,, -- -----"),
        Row(1, "v0.1", ".--x---7,,,,, -- -----"), Row(2, "s0", "---x---, 1 CTF Blue,,,, -- -----"),
        Row(3, "o0", "---x---,, 1 Short Grass, 1 50%,, -- -----"),
        Row(4, "c0", "---x---,,,, 1 24, -- -----"), Row(5, "", "---x---,,,,, .+ .+..+"),
        Row(5, "w0", "---x---,,,,, +. .+..+")}) {
    Show(static_cast<ToolMode>(tool), listed);
    EXPECT_EQ(Objects(), objects) << tool << " " << listed;
  }
  Move(0, 250);  // the waypoint under the pointer lends its settings to the next one
  Move(500, 500);
  BringUpToDate();
  EXPECT_EQ(Listed() + Objects(), "---x---,,,,, .+ +.+..");
  EXPECT_EQ(NextVisibility(editor), "50%");
  editor.activity.Begin(ActivityKind::kDirection, editor);
  map.sceneries.last = -1;
  Show(ToolMode::kAddScenery);
  EXPECT_FALSE(shown.CBscenery.enabled || shown.CBscenery2.enabled);
  EXPECT_EQ(NextVisibility(editor), "100%");
  map.waypoints.last = -1;
  Choose(kAddWaypoint);
  EXPECT_EQ(Signs(shown.CBbotValinta), ".....") << "clean after another tool";
}

TEST_F(PanelContentsTest, ThePathBeingAddedToCannotBeHidden) {
  using Row = std::tuple<ToolMode, std::int16_t, std::int16_t, const char*, int>;
  for (const auto& [tool, path, filter, signs, after] :
       {Row(kAddWaypoint, 1, 0, "+.-", 0), Row(kAddWaypoint, 1, 1, ".+-", 1),
        Row(kAddWaypoint, 1, 2, "+.-", 0), Row(kAddWaypoint, 2, 1, "+-.", 0),
        Row(kEdit, 1, 2, "..+", 2), Row(ToolMode::kAddScenery, 2, 1, ".+.", 1)}) {
    map.waypoints.Last().path = path;
    editor.show.pathFilter = filter;
    Choose(tool);
    EXPECT_EQ(Signs(shown.OBbotNayta), signs);
    EXPECT_EQ(editor.show.pathFilter, after);
  }
  editor.show.showFlags[4] = 0;
  Show(kEdit, "w1");
  EXPECT_EQ(Signs(shown.OBbotNayta), "-x-");
}

}  // namespace
}  // namespace vesmora
