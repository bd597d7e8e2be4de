#include "tools/prefab_import.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <functional>
#include <tuple>

#include "document/prefab_file.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr SelectionBox kCentred = {-10, 10, 20, 30};  // in the middle of the view

struct ImportBench : ToolBench {
  const std::string path = folder / "piece.pre";

  /// A map with one object of each kind, and a prefab of 20 x 10 units at 300, 100.
  ImportBench() {
    AddTriangle(map, {{{0, 0}, {5, 0}, {0, 5}}});
    AddSpawn(map, 1, 1, 1);
    AddScenery(map, 1, 1, 1);
    AddCollider(map, 1, 1, 1);
    AddWaypoint(map, 1, 1, 1);
    StoreAuthor(map);
    const auto piece = std::make_unique<MapDocument>();
    piece->author = "Somebody";
    Polygon& polygon = AddTriangle(*piece, {{{300, 100}, {320, 100}, {300, 110}}});
    polygon.vertices[1] = {320, 100, 3, 4, {1, 2, 3, 4}, 0, 6};
    piece->normals[0].edges[1] = {0, 0, 7};
    AddScenery(*piece, 310.5f, 105.5f, 9).carriedTail = {1, 2, 3};
    AddCollider(*piece, 310, 105, 6).carried = {8, 9};
    PutFile(path, WritePrefab(*piece));
  }

  void Import(ImportManner manner = ImportManner::kPlaced) { ImportPrefab(editing, path, manner); }
  void PutLetter(int code, const std::vector<std::array<ScreenPoint, 3>>& triangles) {
    const auto letter = std::make_unique<MapDocument>();
    for (const auto& corners : triangles) AddTriangle(*letter, corners);
    PutFile(folder / (std::to_string(code) + ".pre"), WritePrefab(*letter));
  }
};

class PrefabImportTest : public testing::Test, protected ImportBench {};

TEST_F(PrefabImportTest, ObjectsAreAppendedAndSelectedAlone) {
  ChangeTool(editing, ToolMode::kAddSpawn);
  SelectEverything(selection, map);
  const MapDocument before = map;
  Import(ImportManner::kQuiet);
  EXPECT_EQ(Listed(), "v1.0 v1.1 v1.2 o1 c1");
  EXPECT_EQ(map.toolIndex, ToolMode::kEdit);
  EXPECT_EQ(selection.box, (SelectionBox{300, 320, 100, 110}));
  EXPECT_FALSE(selection.placing) << "not when quiet";
  EXPECT_THAT(Steps(), IsEmpty());
  EXPECT_EQ(map.polygons[1].vertices[1], (PolygonVertex{320, 100, 3, 4, {1, 2, 3, 4}, 0, 6}));
  EXPECT_EQ(map.normals[1].edges[1], (Normal{0, 0, 7}));
  EXPECT_EQ(map.sceneries[1].carriedTail[2], 3);
  EXPECT_EQ(map.colliders[1].carried[1], 9);
  EXPECT_EQ(
      std::tuple(map.polygons[0], map.sceneries[0], map.colliders[0], map.author),
      std::tuple(before.polygons[0], before.sceneries[0], before.colliders[0], before.author));
  EXPECT_EQ(std::tuple(map.spawns, map.waypoints), std::tuple(before.spawns, before.waypoints));
}

TEST_F(PrefabImportTest, WhatCannotBeIsRefusedAndTheMapStays) {
  const std::string version = "' is not Vesmora " VESMORA_VERSION " prop file.";
  const std::string damaged = "' is damaged: it holds less than it promises.";
  struct Row {
    const char* file;  // of the hostile ones
    bool shift;
    std::string problem;
    int polygons;
  };
  for (const Row& row : {Row{"prefab-polygons_0.pre", false, damaged, 0},
                         Row{"prefab-polygons_3.pre", false, damaged, 0},
                         Row{"prefab-truncated_1.pre", false, version, 0},
                         Row{"prefab-truncated_1.pre", true, version, 0},
                         Row{"prefab-truncated_5.pre", false, damaged, 0},
                         Row{"prefab-version_0.pre", false, version, 0},
                         Row{"prefab-version_0.pre", true, version, 90},
                         Row{"none.pre", false, "' not found.", 0}}) {
    for (const ImportManner manner : {ImportManner::kPlaced, ImportManner::kQuiet}) {
      ImportBench bench;
      const DocumentState before = StateOf(bench.map);
      const std::string file = DataPath(std::string("hostile/") + row.file);
      bench.selection.spawns.Add(0);
      bench.state.shiftDown = row.shift;
      ImportPrefab(bench.editing, file, manner);
      if (manner == ImportManner::kQuiet) {
        EXPECT_THAT(bench.dialogs.messages, IsEmpty());
      } else {
        EXPECT_THAT(bench.dialogs.messages, ElementsAre(Message{"File '" + file + row.problem,
                                                                "File error", MessageIcon::kNone}));
      }
      EXPECT_EQ(bench.map.lastPolygon, row.polygons);
      EXPECT_EQ(StateOf(bench.map) == before, row.polygons == 0) << row.file;
      EXPECT_EQ(bench.selection.vertices.Count(), 3 * row.polygons);
      EXPECT_TRUE(bench.selection.spawns.Empty());
      EXPECT_EQ(bench.selection.placing, row.polygons > 0 && manner == ImportManner::kPlaced);
    }
  }
}

TEST_F(PrefabImportTest, WhatDoesNotFitIsToldOnce) {
  const auto large = std::make_unique<MapDocument>();
  large->lastPolygon = large->lastScenery = large->lastCollider = 9;
  for (std::size_t i = 0; i < 10; ++i) {
    large->polygons[i].vertices[0].z = static_cast<float>(i);
    large->normals[i].edges[0].z = static_cast<float>(i);
    large->sceneries[i].active = 1;
    large->colliders[i].active = 1;
    large->colliders[i].radius = static_cast<float>(i);
  }
  PutFile(path, WritePrefab(*large));
  struct Row {
    std::int16_t polygon, scenery, collider;  // last ones before
    std::string taken;                        // of each kind
  };
  for (const Row& row :
       {Row{389, 243, 117, "10 10 10"}, Row{395, 0, 0, "4 10 10"}, Row{394, 0, 0, "5 10 10"},
        Row{399, 0, 0, "0 10 10"}, Row{0, 252, 0, "10 2 10"}, Row{0, 0, 124, "10 10 3"},
        Row{399, 254, 127, "0 0 0"}}) {
    for (const ImportManner manner : {ImportManner::kPlaced, ImportManner::kQuiet}) {
      map.lastPolygon = row.polygon;
      map.lastScenery = row.scenery;
      map.lastCollider = row.collider;
      Import(manner);
      const int polygons = map.lastPolygon - row.polygon;
      const int sceneries = selection.sceneries.Count();
      const int colliders = map.lastCollider - row.collider;
      // The placement's undo step drops what lies in the last slot, as every step does.
      const int dropped = row.scenery == 252 && manner == ImportManner::kPlaced ? 1 : 0;
      EXPECT_EQ(std::to_string(polygons) + " " + std::to_string(sceneries + dropped) + " " +
                    std::to_string(colliders),
                row.taken);
      if (polygons > 0) {
        const auto last = static_cast<std::size_t>(map.lastPolygon);
        EXPECT_EQ(map.polygons[last].vertices[0].z, polygons - 1);
        EXPECT_EQ(map.normals[last].edges[0].z, polygons - 1);
      }
      if (colliders > 0) {
        EXPECT_EQ(map.colliders[static_cast<std::size_t>(map.lastCollider)].radius, colliders - 1);
      }
      if (row.taken == "10 10 10" || manner == ImportManner::kQuiet) {
        EXPECT_THAT(dialogs.messages, IsEmpty());
      } else {
        ExpectRefusal("Some of imported objects couldn't be pasted");
      }
    }
  }
}

TEST_F(PrefabImportTest, ThePieceFollowsThePointerUntilAClickDropsIt) {
  Import();
  EXPECT_THAT(Steps(), ElementsAre("Move"));
  EXPECT_EQ(selection.box, kCentred);
  Move(100, 50);
  EXPECT_EQ(selection.box, (SelectionBox{90, 110, 45, 55}));
  EXPECT_EQ(events.back(), "RedrawMap");
  Press(100, 50, MouseButton::kRight);
  MoveMouse(editing, {MouseButton::kNone, 540, 350});
  EXPECT_NE(state.view.centerX, 0) << "panned";
  EXPECT_EQ(selection.box, (SelectionBox{90, 110, 45, 55}));
  Release(MouseButton::kRight);
  state.view.zoom = 2;
  Move(-30, -40);
  EXPECT_EQ(selection.box, (SelectionBox{-40, -20, -45, -35}));
  EXPECT_EQ(std::tuple(map.polygons[1].vertices[2].x, map.polygons[1].vertices[2].y),
            std::tuple(-40, -35));
  EXPECT_EQ(std::tuple(map.polygons[1].vertices[1].u, map.polygons[1].vertices[1].v),
            std::tuple(0, 6))
      << "a deleted texture stays deleted";
  EXPECT_EQ(std::tuple(map.sceneries[1].x, map.colliders[1].y), std::tuple(-29.5f, -40));
  const std::string listed = Listed();
  const DocumentState there = StateOf(map);
  Press(-30, -40);
  Release();
  Move(200, 200);
  EXPECT_EQ(StateOf(map), there) << "dropped";
  EXPECT_EQ(Listed(), listed);
  EXPECT_FALSE(state.gesture.InProgress());
  Drag(-30, -40, -20, -40);
  EXPECT_EQ(selection.box, (SelectionBox{-30, -10, -45, -35})) << "and can be dragged";
  EXPECT_THAT(Steps(), ElementsAre("Move"));
}

TEST_F(PrefabImportTest, EscapeAndAToolChangeEndThePlacement) {
  for (const bool byEscape : {true, false}) {
    ImportBench bench;
    bench.Import();
    bench.Move(100, 50);
    const SelectionBox followed = bench.selection.box;
    byEscape ? CancelGesture(bench.editing) : ChangeTool(bench.editing, ToolMode::kEdit);
    EXPECT_EQ(bench.selection.box, byEscape ? kCentred : followed);
    EXPECT_EQ(bench.Listed(), "v1.0 v1.1 v1.2 o1 c1") << "what was imported stays";
    EXPECT_THAT(bench.Steps(), ElementsAre("Move"));
    const DocumentState there = StateOf(bench.map);
    bench.Move(200, 200);
    CancelGesture(bench.editing);
    EXPECT_EQ(StateOf(bench.map), there);
  }
}

TEST_F(PrefabImportTest, CommandsEndWhatTheMouseWasDoingAndStay) {
  for (const auto& [name, command] : {std::pair("Delete", &MenuDelete),
                                      {"Bring", MenuFront},
                                      {"Send", MenuBack},
                                      {"Paste", MenuPaste}}) {
    for (const bool isDrag : {false, true}) {
      ImportBench bench;
      bench.selection.spawns.Add(0);
      UpdateSelectionBox(bench.selection, bench.map);
      MenuCopy(bench.editing);
      bench.Import();
      bench.Move(100, 50);
      if (isDrag) {
        bench.Press(100, 50);
        bench.Release();
        bench.Press(100, 50);
        bench.Move(110, 50);
      }
      command(bench.editing);
      const DocumentState after = StateOf(bench.map);
      EXPECT_THAT(bench.Steps(), testing::Contains(name));
      const auto steps = bench.Steps();
      bench.Move(200, 200);
      EXPECT_TRUE(StateOf(bench.map) == after) << name << ": nothing follows the pointer";
      CancelGesture(bench.editing);
      EXPECT_TRUE(StateOf(bench.map) == after) << name << ": nothing left to cancel";
      EXPECT_EQ(bench.Steps(), steps) << name;
    }
  }
}

TEST_F(PrefabImportTest, LettersStandInARowOnTheLine) {
  struct Row {
    const char* text;
    std::vector<SelectionBox> letters;  // as they stand when their middle is at 0, 25
  };
  PutLetter('a', {{{{10, 100}, {30, 100}, {10, 140}}}});
  PutLetter('b', {{{{-7, -7}, {3, -7}, {3, 53}}}});
  PutLetter('i', {{{{5, 0}, {5, 10}, {5, 20}}}});
  PutLetter(0xE4, {{{{0, 0}, {8, 0}, {8, 8}}}});
  const std::string alphabet = folder.Path();
  for (const Row& row :
       {Row{"a", {{-10, 10, 5, 45}}}, Row{"AB", {{-15, 5, 5, 45}, {5, 15, -5, 55}}},
        Row{"ba", {{-15, -5, -5, 55}, {-5, 15, 5, 45}}},
        Row{"a b", {{-25, -5, 5, 45}, {15, 25, -5, 55}}},
        Row{" a_?b c", {{-35, -15, 5, 45}, {25, 35, -5, 55}}},
        Row{"ia", {{-10, -10, 15, 35}, {-10, 10, 5, 45}}},
        Row{"a\xC4", {{-14, 6, 5, 45}, {6, 14, 21, 29}}}}) {
    ImportBench bench;
    const DocumentState before = StateOf(bench.map);
    PlaceAuthorText(bench.editing, row.text, alphabet);
    EXPECT_EQ(bench.map.lastPolygon, static_cast<int>(row.letters.size())) << row.text;
    std::string listed;
    for (std::size_t i = 0; i < row.letters.size(); ++i) {
      Selection letter;
      const auto slot = static_cast<std::int16_t>(i + 1);
      for (std::uint8_t corner = 0; corner < 3; ++corner) {
        letter.vertices.Add({slot, corner});
        listed += " v" + std::to_string(slot) + "." + std::to_string(corner);
      }
      EXPECT_EQ(BoundsOf(letter, bench.map), row.letters[i]) << row.text << " " << i;
    }
    EXPECT_EQ(" " + bench.Listed(), listed);
    EXPECT_TRUE(bench.selection.placing);
    EXPECT_THAT(bench.Steps(), IsEmpty()) << "the caller's step is the only one";
    EXPECT_EQ(std::get<3>(StateOf(bench.map)), std::get<3>(before));
    bench.Move(30, 40);
    EXPECT_EQ((bench.selection.box.left + bench.selection.box.right) / 2, 30);
    bench.Press(30, 40);
    EXPECT_THAT(bench.Steps(), IsEmpty());
    EXPECT_THAT(bench.dialogs.messages, IsEmpty());
  }
}

TEST_F(PrefabImportTest, TextWithoutLettersLeavesNothingBehind) {
  selection.spawns.Add(0);
  const DocumentState before = StateOf(map);
  PlaceAuthorText(editing, "xyz", folder.Path());
  EXPECT_EQ(StateOf(map), before);
  EXPECT_EQ(Listed(), "");
  EXPECT_FALSE(selection.placing);
  Click(1, 1);
  ASSERT_NE(Listed(), "");
  Drag(1, 1, 20, 20);
  EXPECT_THAT(Steps(), ElementsAre("Move")) << "what comes later has its own step";
}

TEST_F(PrefabImportTest, LettersThatDoNotFitAreLeftOutInSilence) {
  PutLetter('a', {{{{0, 0}, {9, 0}, {0, 9}}}, {{{0, 0}, {9, 0}, {0, 9}}}});
  map.lastPolygon = 396;
  PlaceAuthorText(editing, "aaa", folder.Path());
  EXPECT_EQ(map.lastPolygon, 399);
  EXPECT_EQ(selection.vertices.Count(), 9);
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(PrefabImportTest, AHalfBuiltTriangleIsNoPartOfTheText) {
  PutLetter('a', {{{{0, 0}, {9, 0}, {0, 9}}}, {{{0, 0}, {9, 0}, {0, 9}}}});
  for (const int clicks : {1, 2}) {
    map.lastPolygon = 0;
    ChangeTool(editing, ToolMode::kAddPolygon);
    for (int i = 0; i < clicks; ++i) Click(50.0f * static_cast<float>(i) - 300, 200);
    PlaceAuthorText(editing, "a", folder.Path());
    EXPECT_EQ(map.lastPolygon, 2);
    EXPECT_EQ(Listed(), "v1.0 v1.1 v1.2 v2.0 v2.1 v2.2");
  }
}

}  // namespace
}  // namespace vesmora
