#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

#include "app/file_commands.h"
#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/tool_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/numbered_objects.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

/// `copy` is `original` at another place.
template <typename Record>
void ExpectCopy(Record copy, const Record& original) {
  copy.x = original.x;
  copy.y = original.y;
  if constexpr (requires { copy.authorChar; }) copy.authorChar = original.authorChar;
  if constexpr (requires { copy.id; }) copy.id = original.id;
  EXPECT_EQ(copy, original);
}

class ClipboardTest : public testing::Test, protected ToolBench {
 protected:
  ClipboardTest() { AddNumbered(map, 3); }
};

TEST_F(ClipboardTest, CopiesLieInTheTailOfTheTables) {
  ListVertices(selection, {{0, 1}, {2, 0}, {2, 2}});
  ListSlots(selection, {0, 2});
  MenuCopy(editing);
  EXPECT_TRUE(Steps().empty());
  TakeUndoSnapshot(editing, "Color");
  MapWorkbench undo;  // in the undo files, too
  LoadMap(undo.Context(), state.journal.NewestFile(), true);
  const MapDocument& at = undo.document;
  EXPECT_THAT(NumbersIn(at), testing::Each("012"));
  EXPECT_THAT(std::span(at.polygons).last(2), ElementsAre(map.polygons[2], map.polygons[0]));
  EXPECT_THAT(std::span(at.normals).last(2), ElementsAre(map.normals[2], map.normals[0]));
  EXPECT_THAT(std::span(at.spawns).last(2), ElementsAre(map.spawns[2], map.spawns[0]));
  EXPECT_THAT(std::span(at.sceneries).last(2), ElementsAre(map.sceneries[0], map.sceneries[2]));
  EXPECT_THAT(std::span(at.waypoints).last(2), ElementsAre(map.waypoints[2], map.waypoints[0]));
  ExpectCopy(at.colliders[126], map.colliders[2]);
  ExpectCopy(at.colliders[127], map.colliders[0]);
}

TEST_F(ClipboardTest, PasteAddsCopiesInTheMiddleOfTheView) {
  SelectEverything(selection, map);
  MenuCopy(editing);
  ClearLists(selection);
  selection.box = {9000, 9010, 7000, 7010};  // somebody else's
  state.view.zoom = 2;
  TakeEvents();
  MenuPaste(editing);
  EXPECT_THAT(events,
              ElementsAre("RefreshInfoPanel", "RedrawMap", "RefreshInfoPanel", "RedrawMap"));
  EXPECT_EQ(Listed(),
            "v3.0 v3.1 v3.2 v4.0 v4.1 v4.2 v5.0 v5.1 v5.2 s3 s4 s5 o3 o4 o5 c3 c4 c5 w3 w4 w5");
  // The middle of the map's part of the window, below its top strip, is world 0, 12.5.
  EXPECT_EQ(selection.box, (SelectionBox{-25, 25, -12, 38}));
  for (std::size_t i = 0; i < 3; ++i) {
    ExpectCopy(map.polygons[i + 3].vertices[0], map.polygons[i].vertices[0]);
    EXPECT_EQ(map.polygons[i + 3].vertices[0].x, map.polygons[i].vertices[0].x - 25);
    EXPECT_EQ(map.normals[i + 3], map.normals[i]);
    ExpectCopy(map.spawns[i + 3], map.spawns[i]);
    ExpectCopy(map.sceneries[i + 3], map.sceneries[i]);
    ExpectCopy(map.colliders[i + 3], map.colliders[i]);
    ExpectCopy(map.waypoints[i + 3], map.waypoints[i]);
  }
  EXPECT_EQ(map.spawns[29], map.spawns[3]) << "what was pasted is what is copied now";
}

TEST_F(ClipboardTest, OneSlotStaysFreeAndWhatDoesNotFitIsToldAfterPasting) {
  for (const int pasted : {1, 0}) {
    ToolBench bench;
    bench.map.lastPolygon = 397;
    ListVertices(bench.selection, {{0, 0}, {1, 0}, {2, 0}});
    bench.selection.box = {0, 10, 0, 10};
    MenuCopy(bench.editing);
    EXPECT_EQ(bench.state.clipboard.TotalCounter(), 0);
    bench.TakeEvents();
    bench.map.lastPolygon = static_cast<std::int16_t>(398 - pasted);
    MenuPaste(bench.editing);
    EXPECT_EQ(bench.map.lastPolygon, 398);
    EXPECT_THAT(bench.dialogs.messages,
                ElementsAre(Message{"Some of copied objects couldnt be pasted", "Problem",
                                    MessageIcon::kCritical}));
    EXPECT_EQ(bench.events[2], "Show Problem") << "after panel and map";
    EXPECT_EQ(bench.selection.box.Complete(), pasted == 1) << "no box without a selection";
    bench.map.lastPolygon = 300;
    MenuPaste(bench.editing);
    EXPECT_EQ(bench.dialogs.messages.size(), 1U) << "told once";
  }
}

/// What happens between Copy and Paste in a whole editor.
class ClipboardLifeTest : public testing::Test, protected EditorBench {
 protected:
  /// The first leads to the second, which leads back, to the third and nowhere.
  void CopyTwoWaypoints() {
    MenuNew(editor);
    AddWaypoint(document, 0, 0, 1, {2, 3, 0, -7, 77});
    AddWaypoint(document, 0, 0, 1, {1});
    AddWaypoint(document, 0, 0, 1);
    selection.waypoints.Add(0);
    selection.waypoints.Add(1);
    MenuCopy(editor.AsEditing());
  }
};

TEST_F(ClipboardLifeTest, CopiesKeepLeadingWhereTheCopiedOnesLed) {
  using Links = std::vector<std::int32_t>;
  using Row = std::tuple<const char*, std::vector<std::int16_t>, int, Links>;
  for (const auto& [name, deleted, undone, expected] :
       {Row{"nothing", {}, 0, {5, 3, 0, -7, 77}}, Row{"renumbered", {1}, 0, {4, 2, 0, -7, 77}},
        Row{"gone", {2}, 0, {4, 0, -7, 77}}, Row{"both back", {1, 2}, 2, {5, 3, 0, -7, 77}},
        Row{"twice renumbered, once back", {1, 0}, 1, {4, 2, 0, -7, 77}}}) {
    CopyTwoWaypoints();
    for (const std::int16_t slot : deleted) {
      ClearSelection(selection, window);
      selection.waypoints.Add(slot);
      MenuDelete(editor.AsEditing());
    }
    for (int i = 0; i < undone; ++i) MenuUndo(editor);
    const int first = document.lastWaypoint + 1;
    MenuPaste(editor.AsEditing());
    EXPECT_EQ(LinksOf(document, first), expected) << name;
    EXPECT_THAT(LinksOf(document, first + 1), ElementsAre(first + 1)) << name;
  }
}

TEST_F(ClipboardLifeTest, NewOpenAndAddToolsEmptyIt) {
  const std::string map = PutMap("map.pmp");
  const Editing on = editor.AsEditing();
  const std::vector<std::function<void()>> rows = {[this] { MenuNew(editor); },
                                                   [this, &map] { OpenMap(editor, map); },
                                                   [&] { ChangeTool(on, ToolMode::kAddPolygon); },
                                                   [&] {  // back into an Add tool
                                                     document.toolIndex = ToolMode::kAddSpawn;
                                                     Snapshot("Spwan");
                                                     document.toolIndex = ToolMode::kEdit;
                                                     MenuUndo(editor);
                                                   }};
  for (const auto& empty : rows) {
    CopyTwoWaypoints();
    empty();
    ChangeTool(on, ToolMode::kEdit);
    events.clear();
    MenuPaste(on);
    EXPECT_THAT(events, testing::IsEmpty());
    EXPECT_EQ(journal.undoAvailable, -1) << "no step";
  }
}

}  // namespace
}  // namespace vesmora
