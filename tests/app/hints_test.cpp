// The line below the map.
#include "app/hints.h"

#include "app/commands.h"
#include "panel/panel_handlers.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

struct HintsTest : testing::Test, EditorBench {
  std::string Hint() const {
    std::string line = "as it was before";
    WriteHint(line, editor);
    return line;
  }
  void Run(std::string_view name) {
    const auto commands = Commands();
    RunCommand(editor, *std::ranges::find(commands, name, &Command::name));
  }
};

TEST_F(HintsTest, ItTellsWhatTheToolWaitsFor) {
  EXPECT_EQ(Hint(), "Click or drag to select");
  Press(Key::kShift);
  Choose(ToolMode::kAddPolygon);
  EXPECT_EQ(Hint(), "[Shift] Click the first corner");
  Press(Key::kCtrl);
  EXPECT_EQ(Hint(), "[Shift+Ctrl] Click the first corner");
  KeyUp(editor, Key::kShift);
  EXPECT_EQ(Hint(), "[Ctrl] Click the first corner");
  KeyUp(editor, Key::kCtrl);
  for (const char* next : {"Click the second corner", "Click the third corner"}) {
    Click(next == Hint() ? 0.f : 200.f, 300);
    EXPECT_EQ(Hint(), next);
  }
  Choose(ToolMode::kAddScenery);
  EXPECT_EQ(Hint(), "Click to add a scenery");
  editor.tool.value = 5;
  Click(200, 200);
  EXPECT_EQ(Hint(), "Click its direction");
  Choose(ToolMode::kAddWaypoint);
  EXPECT_EQ(Hint(), "Click to add a waypoint");
  Click(300, 300);
  MoveMouse(editor, {MouseButton::kNone, 300, 300});
  EXPECT_EQ(Hint(), "Click to connect");
  Click(300, 300);
  EXPECT_EQ(Hint(), "Click the next waypoint");
  Choose(ToolMode::kEdit);
  SelectEverything(selection, map);
  EXPECT_EQ(Hint(), "Drag the box to move");
  PressMouse(editor, {MouseButton::kLeft, 10, 10});
  EXPECT_EQ(Hint(), "Release to deselect");
  MoveMouse(editor, {MouseButton::kLeft, 20, 10});
  EXPECT_EQ(Hint(), "Release to select");
}

TEST_F(HintsTest, ItTellsWhatACommandDidUntilSomethingElseIsDone) {
  AddTriangle(map, {{{0, 0}, {500, 0}, {0, 500}}});
  AddTriangle(map, {{{0, 0}, {500, 0}, {0, 500}}});
  map.fileName = folder / "some.pmp";
  const std::string compiled = "Compiled: sectors of ";
  const std::string idle = "Click or drag to select";
  Run("MenuRunCompile");
  EXPECT_EQ(Hint(), compiled + std::to_string(map.sectorDivision));
  Run("MenuSave");
  EXPECT_EQ(Hint(), "Saved 15:03");
  PressMouse(editor, {MouseButton::kRight, 10, 10});
  EXPECT_EQ(Hint(), idle);
  SelectEverything(selection, map);
  Press(Key::kLeft);
  for (const auto& [command, hint] : {std::pair("MenuCopy", "Copied 2 objects"),
                                      {"MenuPaste", "Pasted 2 objects"},
                                      {"MenuUndo", "Undone: Move"}}) {
    Run(command);
    EXPECT_EQ(Hint(), hint);
  }
  Press(Key::kLeft);
  EXPECT_EQ(Hint(), "Drag the box to move");
  dialogs.chosenFiles = {folder / "some.pre"};
  Run("MenuExport");
  EXPECT_EQ(Hint(), "Exported 15:03");
  RunHandler(editor, [](PanelEditing& editing) { CBcollider_Change(editing, "1"); });
  EXPECT_EQ(Hint(), "Enter applies");
  Run("MenuAbout");
  EXPECT_EQ(Hint(), "Drag the box to move");
  files.FailAll("Write", 28);
  Run("MenuSave");
  EXPECT_EQ(Hint(), "Drag the box to move") << "problems are told in boxes";
}

}  // namespace
}  // namespace vesmora
