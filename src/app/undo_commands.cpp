#include "app/undo_commands.h"

#include "app/file_commands.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const std::string kHelpAction = "Help";

/// False when the step could not be restored: its file is gone and a new map stands
/// in, or it cannot be read, and then the map stays and only the step is dropped.
bool RestoreNewestStep(Editor& editor) {
  UndoJournal& journal = editor.state.journal;
  switch (LoadMap(MapFileContextOf(editor.AsEditing()), journal.NewestFile(), true)) {
    case LoadOutcome::kLoaded:
      // What was under construction belonged to the map that is gone.
      editor.state.tool.value = 0;
      editor.state.waypointKeys = journal.waypointKeys[static_cast<std::size_t>(journal.undoSlot)];
      return true;
    case LoadOutcome::kRefused:
      MenuNew(editor);
      return false;
    case LoadOutcome::kUnreadable:
      editor.state.gesture.End();
      ConsumeUndoStep(journal);
      editor.ports.window.RefreshInfoPanel();
      return false;
  }
  return false;
}

void TellHelpCannotBeUndone(Editor& editor) {
  editor.ports.dialogs.Show({.text = "Are you crazy?\nYou can't undo Online Help.. duh.",
                             .title = "User problem",
                             .icon = MessageIcon::kExclamation});
}

}  // namespace

void MenuUndo(Editor& editor) {
  EditorState& state = editor.state;
  if (state.journal.undoAvailable < 0) return;
  if (state.journal.NewestAction() == kHelpAction) {
    TellHelpCannotBeUndone(editor);
    EndConstruction(state);
  } else if (!RestoreNewestStep(editor)) {
    return;
  }
  ResetDragState(state.selection);
  state.gesture.End();
  ConsumeUndoStep(state.journal);
  ChangeTool(editor.AsEditing(), state.document.toolIndex);
}

void MenuHelp(Editor& editor) {
  const std::string manual = AbsolutePath(editor.ports.programFolder + "Help/index.html");
  const bool isThere = FileExists(editor.ports.files, manual);
  if (!isThere || !editor.ports.shell.OpenFile(manual)) {
    editor.ports.dialogs.Show(
        {.text = manual +
                 (isThere ? " could not be opened: no program shows web pages." : " not found"),
         .title = "Run error",
         .icon = MessageIcon::kCritical});
  }
  TakeUndoSnapshot(editor.AsEditing(), kHelpAction);
}

}  // namespace vesmora
