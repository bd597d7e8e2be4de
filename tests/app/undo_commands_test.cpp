#include "app/undo_commands.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

#include "app/file_commands.h"
#include "app/keys.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UndoCommandsTest : public testing::Test {
 protected:
  void Choose(ToolMode tool) { ChangeTool(bench_.editor.AsEditing(), tool); }
  void Undo() { MenuUndo(bench_.editor); }

  EditorBench bench_;
  MapDocument& document_ = bench_.document;
  UndoJournal& journal_ = bench_.journal;
};

TEST_F(UndoCommandsTest, UndoBringsBackToolAndSelectionAndKeepsTheFileName) {
  document_.fileName = "/maps/open.pmp";
  Choose(ToolMode::kAddSpawn);
  bench_.Click(300, 300);
  Choose(ToolMode::kEdit);
  SelectEverything(bench_.selection, document_);
  const std::int32_t x = document_.spawns[0].x;
  KeyDown(bench_.editor, Key::kLeft);
  ClearSelection(bench_.selection, bench_.window);
  bench_.events.clear();
  Undo();
  EXPECT_THAT(bench_.events, testing::Contains("RefreshInfoPanel"));
  EXPECT_EQ(bench_.events.back(), "RedrawMap");
  EXPECT_EQ(document_.spawns[0].x, x);
  EXPECT_THAT(bench_.selection.spawns.Items(), ElementsAre(0)) << "as it was selected then";
  EXPECT_EQ(journal_.caption, "&Undo Spwan");
  Undo();
  EXPECT_EQ(document_.lastSpawn, -1);
  EXPECT_EQ(document_.toolIndex, ToolMode::kAddSpawn);
  EXPECT_EQ(bench_.window.Pointer(), PointerShape::kCross);
  EXPECT_EQ(document_.fileName, "/maps/open.pmp");
  bench_.events.clear();
  Undo();
  EXPECT_THAT(bench_.events, IsEmpty()) << "nothing left";
}

TEST_F(UndoCommandsTest, OnlineHelpCannotBeUndone) {
  const std::string manual = bench_.editor.ports.programFolder + "Help/index.html";
  std::filesystem::create_directory(bench_.editor.ports.programFolder + "Help");
  bench_.Snapshot("Color");
  MenuHelp(bench_.editor);
  EXPECT_THAT(bench_.TakeMessages(),
              ElementsAre(Message{manual + " not found", "Run error", MessageIcon::kCritical}));
  PutFile(manual, {});
  bench_.events.clear();
  MenuHelp(bench_.editor);
  EXPECT_THAT(bench_.events, ElementsAre("OpenFile " + manual));
  EXPECT_EQ(journal_.caption, "&Undo Help");

  AddSpawn(document_, 1, 2, 0);  // behind the journal's back: nothing may be loaded
  const DocumentState before = StateOf(document_);
  for (const char* caption : {"&Undo Help", "&Undo Color"}) {
    Undo();
    EXPECT_THAT(bench_.TakeMessages(),
                ElementsAre(Message{"Are you crazy?\nYou can't undo Online Help.. duh.",
                                    "User problem", MessageIcon::kExclamation}));
    EXPECT_TRUE(StateOf(document_) == before);
    EXPECT_EQ(journal_.caption, caption);
  }
}

TEST_F(UndoCommandsTest, NoHalfBuiltTriangleSurvives) {
  // The action of the step taken back, and the corners placed before and after it.
  for (const auto& [action, placedBefore, placedAfter] : {std::tuple{"Polygon", 1, 0},
                                                          {"Polygon", 2, 0},
                                                          {"Background", 1, 0},
                                                          {"Background", 1, 2},
                                                          {"Help", 2, 0}}) {
    SCOPED_TRACE(testing::Message() << action << " " << placedBefore << " " << placedAfter);
    MenuNew(bench_.editor);
    AddTriangle(document_, {{{0, 0}, {50, 0}, {0, 50}}});
    Choose(ToolMode::kAddPolygon);
    for (int i = 0; i < placedBefore; ++i) bench_.Click(300, 300 + 90 * static_cast<float>(i));
    if (std::string(action) != "Polygon") bench_.Snapshot(action);
    for (int i = 0; i < placedAfter; ++i) bench_.Click(400, 300 + 90 * static_cast<float>(i));
    Undo();
    EXPECT_EQ(document_.lastPolygon, 0);
    EXPECT_EQ(bench_.state.tool.value, 0);
    EXPECT_EQ(document_.toolIndex, ToolMode::kAddPolygon);
    KeyDown(bench_.editor, Key::kEscape);
    Choose(ToolMode::kEdit);
    EXPECT_EQ(document_.lastPolygon, 0) << "nothing is dropped twice";
  }
}

TEST_F(UndoCommandsTest, PreviewsNeverBecomeObjects) {
  for (const auto& [tool, last] : {std::pair{ToolMode::kAddSpawn, &document_.lastSpawn},
                                   {ToolMode::kAddScenery, &document_.lastScenery},
                                   {ToolMode::kAddCollider, &document_.lastCollider}}) {
    Choose(tool);
    bench_.Click(300, 300);
    bench_.Click(500, 400);  // on its way there it had a preview behind the first
    Undo();
    EXPECT_EQ(*last, 0);
    Choose(ToolMode::kEdit);
    EXPECT_EQ(*last, 0);
  }
  document_.fileName = bench_.folder / "saved.pmp";
  MenuSave(bench_.editor);
  OpenMap(bench_.editor, bench_.folder / "saved.pmp");
  EXPECT_EQ(document_.lastSpawn + document_.lastScenery + document_.lastCollider, 0);
}

TEST_F(UndoCommandsTest, AVanishedFileGivesANewMapAndAnUnreadableOneChangesNothing) {
  AddSpawn(document_, 1, 2, 0);
  bench_.Snapshot("Move");
  bench_.Snapshot("Color");
  const DocumentState before = StateOf(document_);
  bench_.files.FailAll("OpenToRead", EACCES);
  Undo();
  EXPECT_THAT(bench_.TakeMessages(), ElementsAre(testing::Field(&Message::title, "File error")));
  EXPECT_TRUE(StateOf(document_) == before);
  EXPECT_EQ(journal_.caption, "&Undo Move") << "it does not bar the way to older steps";
  bench_.files.FailAll("OpenToRead", 0);

  std::filesystem::remove(journal_.NewestFile());
  Undo();
  EXPECT_THAT(bench_.TakeMessages(),
              ElementsAre(FileError("File '" + bench_.Temp("VesmoraUndo0.tmp") + "' not found.")));
  EXPECT_EQ(document_.lastSpawn, -1);
  EXPECT_EQ(journal_.caption, "&Undo");
}

TEST_F(UndoCommandsTest, AnEditGoesOnWithoutItsSnapshot) {
  Choose(ToolMode::kAddSpawn);
  bench_.Click(300, 300);
  bench_.files.LimitFileSize(1000);
  bench_.Click(350, 300);
  bench_.Click(400, 300);
  EXPECT_EQ(document_.lastSpawn, 2);
  EXPECT_EQ(bench_.TakeMessages().size(), 1U);
  Undo();
  EXPECT_EQ(document_.lastSpawn, -1) << "back to the last step that there is";
}

}  // namespace
}  // namespace vesmora
