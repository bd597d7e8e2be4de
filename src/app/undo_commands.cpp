#include "app/undo_commands.h"

#include "app/file_commands.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const std::string kHelpAction = "Help";

/// False when there is nothing to go back to: the step's file is gone and a new
/// map stands in, or the system cannot read it and all stays as it is.
bool RestoreNewestStep(Editor& editor) {
  const std::string path = editor.state.journal.NewestFile();
  switch (LoadMap(MapFileContextOf(editor.AsEditing()), path, true)) {
    case LoadOutcome::kLoaded:
      return true;
    case LoadOutcome::kRefused:
      MenuNew(editor);
      return false;
    case LoadOutcome::kUnreadable:
      break;
  }
  return false;
}

}  // namespace

void MenuUndo(Editor& editor) {
  EditorState& state = editor.state;
  if (state.journal.undoAvailable < 0) return;
  ResetDragState(state.selection);
  state.gesture.End();
  if (state.journal.NewestAction() == kHelpAction) {
    editor.ports.dialogs.Show({.text = "Are you crazy?\nYou can't undo Online Help.. duh.",
                               .title = "User problem",
                               .icon = MessageIcon::kExclamation});
  } else {
    EndConstruction(state);
    if (!RestoreNewestStep(editor)) return;
    // The triangle under construction belonged to the map that is gone.
    state.tool.value = 0;
  }
  ChangeTool(editor.AsEditing(), state.document.toolIndex);
  ConsumeUndoStep(state.journal);
  RefreshAll(editor.AsEditing());
  ResetDragState(state.selection);
}

void MenuHelp(Editor& editor) {
  const std::string manual = editor.ports.programFolder + "Help/index.html";
  if (!FileExists(editor.ports.files, manual) || !editor.ports.shell.OpenFile(manual)) {
    editor.ports.dialogs.Show(
        {.text = manual + " not found", .title = "Run error", .icon = MessageIcon::kCritical});
  }
  TakeUndoSnapshot(editor.AsEditing(), kHelpAction);
}

}  // namespace vesmora
