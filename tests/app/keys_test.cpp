// Keys and the table of commands.
#include "app/keys.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <set>

#include "app/commands.h"
#include "app/undo_commands.h"
#include "panel/map_handlers.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::IsEmpty;

class KeysTest : public testing::Test, protected EditorBench {
 protected:
  const PolygonVertex& AddSelectedTriangle() {
    AddTriangle(document, {{{0, 0}, {50, 0}, {0, 50}}});
    SelectEverything(selection, document);
    events.clear();
    return document.polygons[0].vertices[1];
  }
};

TEST_F(KeysTest, CommandsKnowTheirToolAndNoShortcutOrMnemonicMeansTwoThings) {
  const std::set<std::string_view> needEdit = {"MenuCopy", "MenuPaste", "MenuMirror",
                                               "MenuFlip", "MenuFront", "MenuBack"};
  std::set<std::pair<std::string_view, char>> shortcuts;
  journal.caption = "&Undo Spwan";
  for (const Command& command : Commands()) {
    const std::string name(command.name);
    const std::string_view menu = MenuCaptions()[static_cast<std::size_t>(command.menu)];
    EXPECT_TRUE(shortcuts.insert({menu, command.caption.at(command.caption.find('&') + 1)}).second);
    EXPECT_TRUE(command.shortcut.empty() || shortcuts.insert({command.shortcut, 0}).second) << name;
    EXPECT_EQ(CaptionOf(command, state), name == "MenuUndo" ? "&Undo Spwan" : command.caption);
    for (const bool hasCopy : {false, true}) {
      state.clipboard.spawns.last = hasCopy ? 0 : -1;
      document.toolIndex = ToolMode::kEdit;
      EXPECT_EQ(IsEnabled(command, state), hasCopy || name != "MenuPaste");
      document.toolIndex = ToolMode::kAddPolygon;
      EXPECT_EQ(IsEnabled(command, state), !needEdit.contains(command.name)) << name;
    }
    if (name == "MenuExit" || name == "MenuAbout") command.action(editor);
  }
  EXPECT_THAT(events, ElementsAre("Unload", "ShowAbout"));
}

TEST_F(KeysTest, ArrowsMoveTheSelectionInStepsOrArePassedOn) {
  using Row = std::tuple<bool, bool, Key, float, float>;
  for (const auto& [shift, ctrl, key, x, y] :
       {Row(false, false, Key::kLeft, -1, 0), Row(true, false, Key::kUp, 0, -0.1f),
        Row(false, true, Key::kRight, 10, 0), Row(true, true, Key::kDown, 0, 50)}) {
    MenuNew(editor);
    state.view.zoom = 4;
    state.view.gridSize = 25;  // neither counts
    const PolygonVertex& corner = AddSelectedTriangle();
    for (const Key modifier : {Key::kShift, Key::kCtrl}) {
      KeyUp(editor, modifier);
      // Controls see a modifier, too.
      EXPECT_FALSE((modifier == Key::kShift ? shift : ctrl) && Press(modifier));
    }
    EXPECT_TRUE(Press(key));
    EXPECT_THAT(events, ElementsAre("RedrawMap"));
    EXPECT_FLOAT_EQ(corner.x, 50 + x);
    EXPECT_FLOAT_EQ(corner.y, y);
    Press(key);
    EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Move") << "one step a selection";
    MenuUndo(editor);
    Press(key);
    EXPECT_EQ(journal.undoAvailable, 0) << "a move after Undo is a step of its own";
  }
  for (const ToolMode tool : {ToolMode::kEdit, ToolMode::kAddPolygon}) {
    Choose(tool);
    ClearLists(selection);
    if (tool != ToolMode::kEdit) selection.vertices.Add({0, 1});  // the one under the pointer
    events.clear();
    EXPECT_FALSE(Press(Key::kLeft) || Press(Key::kOther));
    EXPECT_THAT(events, IsEmpty());
  }
}

TEST_F(KeysTest, EscapeTakesBackWhatIsInProgressAndNoMore) {
  EXPECT_FALSE(Press(Key::kEscape));
  EXPECT_THAT(events, IsEmpty()) << "nothing in progress";
  Choose(ToolMode::kAddPolygon);
  for (const float x : {300.f, 350.f}) Click(x, 300);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "1: 0 0 0 0 0, 0 &Undo");
  Click(300, 300);
  Choose(ToolMode::kAddSpawn);  // the triangle given up takes nothing of what follows with it
  Click(300, 300);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "2: 0 1 0 0 0, 2 &Undo Spwan");
  Choose(ToolMode::kAddPolygon);
  state.tool.next.vertexColor = {1, 2, 3};
  Click(300, 300);
  dialogs.chosenColors = {0x030201};
  const Editing editing = editor.AsEditing();
  RunHandler({editing, state.panel}, CBtausta1_Click);
  Press(Key::kEscape);
  EXPECT_EQ(document.backgroundColor1.blue, 3) << "chosen elsewhere in between";
  EXPECT_EQ(state.tool.next.vertexColor, (Rgb{1, 2, 3})) << "as chosen for the next one";
  EXPECT_EQ(Status(), "1: 0 1 0 0 0, 4 &Undo Background");

  MenuNew(editor);
  const PolygonVertex& corner = AddSelectedTriangle();
  const auto drag = [this](float by) {
    const float x = state.view.LaskeRuutuX(20);
    const float y = state.view.LaskeRuutuY(20);
    PressMouse(editor.AsEditing(), {MouseButton::kLeft, x, y});
    MoveMouse(editor.AsEditing(), {MouseButton::kLeft, x + by, y});
  };
  drag(40);
  EXPECT_EQ(corner.x, 90);
  Press(Key::kEscape);
  EXPECT_EQ(corner.x, 50);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 0 &Undo");
  drag(40);
  MenuUndo(editor);  // ends a drag as well, and then there is nothing left to take back
  MoveMouse(editor.AsEditing(), {MouseButton::kLeft, 900, 300});
  EXPECT_EQ(corner.x, 50);
  Press(Key::kRight);
  Press(Key::kEscape);
  EXPECT_EQ(corner.x, 51);
  // An undo file that cannot be read must not leave Escape looking for its step.
  Snapshot("Color");
  drag(0);
  files.FailAll("OpenToRead", EIO);
  MenuUndo(editor);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Move");
}

}  // namespace
}  // namespace vesmora
