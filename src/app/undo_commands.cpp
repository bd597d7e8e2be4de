#include "app/undo_commands.h"

#include "app/file_commands.h"
#include "app/file_messages.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const std::string kHelpAction = "Help";

/// False when the step could not be restored: its file is gone and a new map stands
/// in, or it cannot be read, and then the map stays and only the step is dropped.
bool RestoreNewestStep(Editor& editor) {
  UndoJournal& journal = editor.journal;
  const std::string file = journal.NewestFile();
  const LoadReport report =
      LoadMap(editor.document, editor.selection, editor.ports.files, file, true);
  TellLoadReport(editor, file, report);
  switch (report.outcome) {
    case LoadOutcome::kLoaded:
      // What was under construction belonged to the map that is gone.
      editor.activity.Forget();
      editor.waypointKeys = journal.NewestKeys();
      return true;
    case LoadOutcome::kRefused:
      MenuNew(editor);
      return false;
    case LoadOutcome::kUnreadable:
      ConsumeUndoStep(journal);
      editor.activity.KeepChanges(editor, true);
      RefreshInfoPanel(editor);
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
  if (editor.journal.undoAvailable < 0) return;
  if (editor.journal.NewestAction() == kHelpAction) {
    TellHelpCannotBeUndone(editor);
    editor.activity.Finish(editor);
  } else if (!RestoreNewestStep(editor)) {
    return;
  }
  editor.selection.moveSnapshotTaken = false;
  const std::string undone = editor.journal.NewestAction();
  ConsumeUndoStep(editor.journal);
  ChangeTool(editor, editor.document.toolIndex);
  if (undone != kHelpAction) editor.note = "Undone: " + undone;
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
  TakeUndoSnapshot(editor, kHelpAction);
}

}  // namespace vesmora
