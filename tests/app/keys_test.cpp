#include "app/keys.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "app/file_commands.h"
#include "app/undo_commands.h"
#include "app/view_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeysTest : public testing::Test {
 protected:
  bool Press(Key key) { return KeyDown(bench_.editor, key); }
  void Hold(bool shift, bool ctrl) {
    KeyUp(bench_.editor, Key::kShift);
    KeyUp(bench_.editor, Key::kCtrl);
    // Controls see a modifier too.
    EXPECT_FALSE(shift && Press(Key::kShift));
    EXPECT_FALSE(ctrl && Press(Key::kCtrl));
  }
  void AddSelectedTriangle() {
    AddTriangle(document_, {{{0, 0}, {50, 0}, {0, 50}}});
    SelectEverything(bench_.selection, document_);
    bench_.events.clear();
  }

  EditorBench bench_;
  EditorState& state_ = bench_.state;
  MapDocument& document_ = bench_.document;
};

TEST_F(KeysTest, ModifiersAreWhatTheKeysSaid) {
  Hold(true, true);
  MenuNew(bench_.editor);
  OpenMap(bench_.editor, bench_.PutMap("a.pmp"));
  bench_.Snapshot("Color");
  MenuUndo(bench_.editor);
  bench_.Click(300, 300);
  for (const Key key : {Key::kOther, Key::kLeft, Key::kEscape, Key::kCtrl}) {
    KeyUp(bench_.editor, key);
    EXPECT_TRUE(state_.shiftDown);
    EXPECT_EQ(state_.ctrlDown, key != Key::kCtrl);
  }
  KeyUp(bench_.editor, Key::kShift);
  EXPECT_FALSE(state_.shiftDown);
}

TEST_F(KeysTest, ArrowsMoveTheSelectionInSteps) {
  using Row = std::tuple<bool, bool, float>;
  for (const auto& [shift, ctrl, step] :
       {Row(false, false, 1), Row(true, false, 0.1f), Row(false, true, 10), Row(true, true, 50)}) {
    for (const auto& [key, x, y] : {std::tuple{Key::kLeft, -1, 0},
                                    {Key::kUp, 0, -1},
                                    {Key::kRight, 1, 0},
                                    {Key::kDown, 0, 1}}) {
      MenuNew(bench_.editor);
      state_.view.zoom = 4;
      state_.view.gridSize = 25;  // neither counts
      AddSelectedTriangle();
      Hold(shift, ctrl);
      EXPECT_TRUE(Press(key));
      EXPECT_THAT(bench_.events, ElementsAre("RedrawMap"));
      const PolygonVertex& corner = document_.polygons[0].vertices[1];
      EXPECT_FLOAT_EQ(corner.x, 50 + step * static_cast<float>(x));
      EXPECT_FLOAT_EQ(corner.y, step * static_cast<float>(y));
      EXPECT_FLOAT_EQ(bench_.selection.box.right, 50 + step * static_cast<float>(x));
      EXPECT_EQ(bench_.journal.caption, "&Undo Move");
    }
  }
}

TEST_F(KeysTest, OneMoveStepASelection) {
  AddSelectedTriangle();
  for (int i = 0; i < 5; ++i) Press(Key::kRight);
  EXPECT_EQ(bench_.journal.undoAvailable, 0);
  ClearSelection(bench_.selection, bench_.window);
  SelectEverything(bench_.selection, document_);
  Press(Key::kRight);
  EXPECT_EQ(bench_.journal.undoAvailable, 1);
  MenuUndo(bench_.editor);
  Press(Key::kDown);
  EXPECT_EQ(bench_.journal.undoAvailable, 1) << "a move after Undo is a step of its own";
  MenuUndo(bench_.editor);
  MenuUndo(bench_.editor);
  EXPECT_EQ(document_.polygons[0].vertices[1].x, 50);
}

TEST_F(KeysTest, ArrowsThatMoveNothingArePassedOn) {
  for (int tool = 0; tool < kToolCount; ++tool) {
    AddSelectedTriangle();
    ChangeTool(bench_.editor.AsEditing(), static_cast<ToolMode>(tool));
    // Add tools list the corner under the pointer.
    if (tool == 0) ClearLists(bench_.selection);
    if (tool == 1) bench_.selection.vertices.Add({0, 1});
    const DocumentState before = StateOf(document_);
    bench_.events.clear();
    for (const Key key : {Key::kLeft, Key::kUp, Key::kRight, Key::kDown, Key::kOther}) {
      EXPECT_FALSE(Press(key)) << tool;
    }
    EXPECT_THAT(bench_.events, IsEmpty());
    EXPECT_TRUE(StateOf(document_) == before);
    EXPECT_EQ(bench_.journal.undoAvailable, -1);
  }
}

TEST_F(KeysTest, AnArrowWhileAPressIsPendingDoesNotMakeItABox) {
  AddTriangle(document_, {{{-5000, -5000}, {-4900, -5000}, {-5000, -4900}}});
  AddSpawn(document_, 0, 0, 0);
  bench_.selection.spawns.Add(0);
  UpdateSelectionBox(bench_.selection, document_);
  // Beside the selection: the release where it is only deselects.
  PressMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, 800, 600});
  Press(Key::kRight);
  ReleaseMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, 800, 600});
  EXPECT_TRUE(bench_.selection.Empty());
}

TEST_F(KeysTest, KeypadZoomsInEveryToolAndStopsAtTheEnds) {
  for (int tool = 0; tool < kToolCount; ++tool) {
    ChangeTool(bench_.editor.AsEditing(), static_cast<ToolMode>(tool));
    ChooseZoom(bench_.editor, 2);
    bench_.state.pointerText = "1.0, 2.0";
    for (const auto& [key, zooms] : {std::pair{Key::kKeypadPlus, std::vector<float>{2, 4, 4}},
                                     {Key::kKeypadMinus, {2, 1, 0.5f, 0.25f, 0.25f}}}) {
      for (const float zoom : zooms) {
        const bool changes = state_.view.zoom != zoom;
        bench_.events.clear();
        EXPECT_TRUE(Press(key));
        EXPECT_EQ(state_.view.zoom, zoom);
        EXPECT_EQ(bench_.events.size(), changes ? 1U : 0U);
      }
    }
    EXPECT_EQ(state_.pointerText, "") << "what the pointer was over is elsewhere";
  }
}

TEST_F(KeysTest, EscapeTakesBackWhatIsInProgress) {
  EXPECT_FALSE(Press(Key::kEscape));
  EXPECT_THAT(bench_.events, IsEmpty()) << "nothing in progress";

  ChangeTool(bench_.editor.AsEditing(), ToolMode::kAddPolygon);
  for (const int corners : {1, 2}) {
    for (int i = 0; i < corners; ++i) bench_.Click(300 + 50 * static_cast<float>(i), 300);
    Press(Key::kEscape);
    EXPECT_EQ(document_.lastPolygon, -1);
    EXPECT_EQ(state_.tool.value, 0);
    EXPECT_EQ(bench_.journal.caption, "&Undo") << "no step is left of it";
    EXPECT_EQ(document_.toolIndex, ToolMode::kAddPolygon);
  }

  ChangeTool(bench_.editor.AsEditing(), ToolMode::kEdit);
  AddSelectedTriangle();
  const float x = state_.view.LaskeRuutuX(20);
  const float y = state_.view.LaskeRuutuY(20);
  PressMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, x, y});
  MoveMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, x + 40, y});
  EXPECT_EQ(document_.polygons[0].vertices[1].x, 90);
  Press(Key::kEscape);
  EXPECT_EQ(document_.polygons[0].vertices[1].x, 50);
  EXPECT_EQ(bench_.journal.caption, "&Undo");

  // Undo ends a drag as well, and then there is nothing left to take back.
  PressMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, x, y});
  MoveMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, x + 40, y});
  MenuUndo(bench_.editor);
  MoveMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, x + 60, y});
  EXPECT_EQ(document_.polygons[0].vertices[1].x, 50) << "the drag is over";
  Press(Key::kRight);
  Press(Key::kEscape);
  EXPECT_EQ(document_.polygons[0].vertices[1].x, 51);
}

TEST_F(KeysTest, EscapeNeverReachesBackBehindAFinishedEdit) {
  // A triangle given up for another tool takes nothing of what follows with it.
  ChangeTool(bench_.editor.AsEditing(), ToolMode::kAddPolygon);
  bench_.Click(300, 300);
  ChangeTool(bench_.editor.AsEditing(), ToolMode::kAddSpawn);
  for (int i = 0; i < 3; ++i) bench_.Click(300 + 50 * static_cast<float>(i), 300);
  Press(Key::kEscape);
  EXPECT_EQ(document_.lastSpawn, 2);
  EXPECT_EQ(bench_.journal.undoAvailable, 3);

  ChangeTool(bench_.editor.AsEditing(), ToolMode::kAddPolygon);
  bench_.Click(300, 300);
  bench_.dialogs.chosenFiles = {bench_.folder / "ctf_a.pmp"};
  MenuSaveAs(bench_.editor);
  Press(Key::kEscape);
  EXPECT_EQ(bench_.journal.undoAvailable, -1);

  // An undo file that cannot be read must not leave Escape looking for its step.
  MenuNew(bench_.editor);
  bench_.Snapshot("Color");
  bench_.Snapshot("Color");
  PressMouse(bench_.editor.AsEditing(), {MouseButton::kLeft, 900, 700});
  bench_.files.FailAll("OpenToRead", EIO);
  MenuUndo(bench_.editor);
  Press(Key::kEscape);
  EXPECT_EQ(bench_.journal.undoAvailable, 0);
}

}  // namespace
}  // namespace vesmora
