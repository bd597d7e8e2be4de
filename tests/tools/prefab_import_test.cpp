#include "tools/prefab_import.h"

#include <gmock/gmock.h>

#include "document/prefab_file.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
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
    AddNumbered(map, 1);
    MapDocument piece;
    piece.author = "Somebody";
    AddTriangle(piece, {{{300, 100}, {320, 100}, {300, 110}}});
    piece.polygons[0].edges[1] = {0, 0, 7};
    AddScenery(piece, 310.5f, 105.5f, 9).carriedTail = {3};
    AddCollider(piece, 310, 105, 6).carried = {8};
    piece.sceneries[0].active = piece.colliders[0].active = 0;  // some say so
    PutFile(path, WritePrefab(piece));
  }

  void PutLetter(int code, const std::array<ScreenPoint, 3>& corners) {
    MapDocument letter;
    AddTriangle(letter, corners);
    PutFile(folder / (std::to_string(code) + ".pre"), WritePrefab(letter));
  }
};

class PrefabImportTest : public testing::Test, protected ImportBench {};

TEST_F(PrefabImportTest, WhatCannotBeIsRefusedAndToldWhy) {
  const std::string version = "is not Vesmora " VESMORA_VERSION " prop file.";
  const std::string cut = "is damaged: it holds less than it promises.";
  const std::string impossible = "is damaged: it names -4 polygons, 40 sceneries and 24 colliders.";
  using Row = std::tuple<const char*, char, bool, std::vector<std::string>, int>;
  for (const auto& [name, minor, shift, problems, polygons] :
       {Row{"truncated_5.pre", '0', false, {cut}, 0},
        Row{"polygons_3.pre", '0', true, {impossible}, 0},
        Row{"version_0.pre", '1', false, {version}, 0},
        Row{"version_0.pre", '1', true, {version}, 90},
        Row{"truncated_5.pre", '1', true, {version, cut}, 0},
        Row{"polygons_3.pre", '1', true, {version, impossible}, 0},
        Row{"polygons_3.pre", '1', false, {version}, 0}, Row{"", '0', false, {"not found."}, 0}}) {
    const std::string file = folder / (name + std::string("x"));
    if (*name != 0) {
      Bytes bytes = FileBytes(DataPath(std::string("hostile/prefab-") + name));
      bytes[2] = static_cast<std::byte>(minor);
      PutFile(file, bytes);
    }
    editor.shiftDown = shift;
    ImportPrefab(editor, file, ImportManner::kPlaced);
    std::vector<Message> messages;
    for (const std::string& problem : problems) {
      messages.push_back(FileError("File '" + file + "' " + problem));
    }
    EXPECT_EQ(TakeMessages(), messages);
    EXPECT_EQ(std::tuple(map.polygons.last, selection.vertices.Count(),
                         editor.activity.Is(ActivityKind::kPlacement)),
              std::tuple(polygons, 3 * polygons, polygons > 0));
    map.polygons.last = 0;
  }
}

TEST_F(PrefabImportTest, WhatDoesNotFitIsToldOnce) {
  map.polygons.last = 399;
  map.colliders.last = 126;
  ImportPrefab(editor, path, ImportManner::kPlaced);
  EXPECT_EQ(Listed(), "o1 c127") << "to the last slot";
  const std::string overflow = "Some of imported objects couldn't be pasted";
  ExpectRefusal(overflow);
  // Its step takes no scenery away to make room, nor does that of the move what has come in.
  for (const auto& [last, listed] : {std::pair{253, "o254"}, {254, ""}}) {
    map.sceneries.last = static_cast<std::int16_t>(last);
    map.colliders.last = 127;
    TakeUndoSnapshot(editor, "Import");
    ImportPrefab(editor, path, ImportManner::kPlaced);
    EXPECT_EQ(std::tuple(Listed(), map.sceneries.last), std::tuple(listed, 254));
    ExpectRefusal(overflow);
  }
  PutLetter('a', {{{10, 100}, {30, 100}, {10, 140}}});
  map.polygons.last = 397;
  PlaceAuthorText(editor, "aaaa", folder.Path());
  EXPECT_EQ(selection.vertices.Count(), 6) << "two of the letters";
  EXPECT_THAT(TakeMessages(), ElementsAre()) << "letters come quietly";
}

TEST_F(PrefabImportTest, ThePieceIsAppendedAndFollowsThePointerUntilAClickDropsIt) {
  ChangeTool(editor, ToolMode::kAddSpawn);
  SelectEverything(selection, map);
  ImportPrefab(editor, path, ImportManner::kPlaced);
  EXPECT_EQ(map.toolIndex, ToolMode::kEdit);
  EXPECT_THAT(NumbersIn(map), ElementsAre("00", "07", "0", "03", "08", "0"));
  EXPECT_EQ(map.sceneries[1].active + map.colliders[1].active, 2) << "used all the same";
  EXPECT_EQ(selection.box, kCentred);
  Press(100, 50, MouseButton::kRight);
  MoveMouse(editor, {MouseButton::kNone, 540, 350});
  EXPECT_EQ(selection.box, kCentred) << "panned";
  Release(MouseButton::kLeft);  // pressed elsewhere
  EXPECT_TRUE(editor.view.panning);
  Release(MouseButton::kRight);
  editor.view.zoom = 2;
  Move(-30, -40);
  EXPECT_EQ(events.back(), "RedrawMap");
  EXPECT_EQ(std::tuple(map.sceneries[1].x, map.colliders[1].y), std::tuple(-29.5f, -40));
  Click(-30, -40);
  Move(200, 200);
  EXPECT_EQ(selection.box, (SelectionBox{-40, -20, -45, -35})) << "dropped";
  EXPECT_EQ(Listed(), "v1.0 v1.1 v1.2 o1 c1");
  EXPECT_THAT(Steps(), ElementsAre("Move"));
}

TEST_F(PrefabImportTest, EscapeToolsAndCommandsEndThePlacementAndWhatWasImportedStays) {
  using Action = void (*)(Editing&);
  const Action chooseEdit = [](Editing& on) { ChangeTool(on, ToolMode::kEdit); };
  const Action clickPanelAndCancel = [](Editing& on) {
    on.activity.KeepChanges(on, false);
    CancelGesture(on);
  };
  for (const auto& [action, sceneries] : {std::pair{chooseEdit, 2},
                                          {clickPanelAndCancel, 2},
                                          {CancelGesture, 2},
                                          {MenuDelete, 1},
                                          {MenuBack, 2},
                                          {MenuPaste, 3}}) {
    ImportBench bench;
    SelectEverything(bench.selection, bench.map);
    MenuCopy(bench.editor);
    ImportPrefab(bench.editor, bench.path, ImportManner::kPlaced);
    bench.Move(100, 50);
    action(bench.editor);
    EXPECT_EQ(bench.map.sceneries.last + 1, sceneries);
    EXPECT_EQ(bench.selection.box == kCentred, action == Action{CancelGesture});
    const DocumentState after = StateOf(bench.map);
    const auto steps = bench.Steps();
    bench.Move(200, 200);
    CancelGesture(bench.editor);
    EXPECT_TRUE(StateOf(bench.map) == after) << "nothing follows the pointer, nothing to cancel";
    EXPECT_EQ(bench.Steps(), steps);
  }
}

TEST_F(PrefabImportTest, LettersStandInARowOnTheLine) {
  using Row = std::tuple<const char*, std::vector<SelectionBox>>;
  for (const auto& [text, letters] :  // as they stand when their middle is at 0, 25
       {Row{"AB", {{-15, 5, 5, 45}, {5, 15, -5, 55}}},
        Row{" a_?b c", {{-35, -15, 5, 45}, {25, 35, -5, 55}}},
        Row{"a\xC4", {{-14, 6, 5, 45}, {6, 14, 21, 29}}}, Row{"xyz", {}}}) {
    ImportBench bench;
    bench.PutLetter('a', {{{10, 100}, {30, 100}, {10, 140}}});
    bench.PutLetter('b', {{{-7, -7}, {3, -7}, {3, 53}}});
    bench.PutLetter(0xE4, {{{0, 0}, {8, 0}, {8, 8}}});
    ListSlots(bench.selection, {0});
    ChangeTool(bench.editor, ToolMode::kAddPolygon);
    bench.Click(-300, 200);  // a half-built triangle is no part of the text
    ClearHistory(bench.journal);
    PlaceAuthorText(bench.editor, text, bench.folder.Path());
    EXPECT_EQ(bench.map.polygons.last, static_cast<int>(letters.size())) << text;
    EXPECT_EQ(bench.selection.TotalCounter() + 1, 3 * bench.map.polygons.last) << text;
    for (std::int16_t slot = 1; slot <= bench.map.polygons.last; ++slot) {
      Selection letter;
      ListVertices(letter, {{slot, 0}, {slot, 1}, {slot, 2}});
      EXPECT_EQ(BoundsOf(letter, bench.map), letters.at(static_cast<std::size_t>(slot - 1)));
    }
    EXPECT_EQ(bench.editor.activity.Is(ActivityKind::kPlacement), !letters.empty());
    EXPECT_EQ(bench.selection.moveSnapshotTaken, !letters.empty());
    EXPECT_THAT(bench.Steps(), IsEmpty()) << "the caller's step is the only one";
  }
}

}  // namespace
}  // namespace vesmora
