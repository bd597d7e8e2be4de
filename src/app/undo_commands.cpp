#include "app/undo_commands.h"

#include "app/file_commands.h"
#include "app/file_messages.h"
#include "app/safety_net.h"
#include "document/session_note.h"
#include "document/snapshot.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const std::string kHelpAction = "Help";

/// The map as it is now, for Redo; false when it could not be filed.
bool FileMapForRedo(Editor& editor) {
  FileCalls& files = editor.ports.files;
  if (!IsStillHeld(files, editor.journal.folder)) return false;
  GiveWaypointKeys(editor);
  const auto failure = WithoutTriangle(editor, [&] { return FileForRedo(editor, files); });
  TellSnapshotFailure(editor, failure, "The undo goes on, but it cannot be redone.");
  UndoJournal& journal = editor.journal;
  if (failure && !journal.undoneKept) journal.undoneKept = KeepUndone(editor);
  return !failure;
}

/// What was under construction belonged to the map that is gone.
void TakeLoaded(Editor& editor, const WaypointKeys& keys) {
  editor.activity.Forget();
  editor.waypointKeys = keys;
}

/// The newest step's file, unless it has gone with its folder: under its name there may be
/// another editor's.
LoadReport LoadStep(Editor& editor, const std::string& file) {
  FileCalls& files = editor.ports.files;
  if (!IsStillHeld(files, editor.journal.folder)) {
    return {.outcome = LoadOutcome::kRefused, .status = {FileFailure::kMissing, ""}};
  }
  return LoadMap(editor.document, editor.selection, files, file, true);
}

/// A new map stands in for one whose file has vanished. The map that was open must not go with it.
void ReplaceLostStep(Editor& editor, const std::string& file) {
  const bool isChanged = IsChanged(editor);
  if (!PutAside(editor, RescueCause::kLostUndo)) return;
  if (editor.journal.redoAvailable >= 0) KeepUndone(editor);
  editor.ports.dialogs.Show(
      {.text = "File '" + file + "' not found." +
               (isChanged ? "\nThe map that was open is in File > Recover." : ""),
       .title = "File error",
       .icon = MessageIcon::kNone});
  StartNewMap(editor);
}

/// False when the step could not be restored: its file is gone and a new map stands
/// in, or it cannot be read, and then the map stays and only the step is dropped.
bool RestoreNewestStep(Editor& editor) {
  UndoJournal& journal = editor.journal;
  const std::string file = journal.NewestFile();
  const LoadReport report = LoadStep(editor, file);
  switch (report.outcome) {
    case LoadOutcome::kLoaded:
      TakeLoaded(editor, journal.NewestKeys());
      return true;
    case LoadOutcome::kRefused:
      ReplaceLostStep(editor, file);
      return false;
    case LoadOutcome::kUnreadable:
      TellLoadReport(editor, file, report);
      if (journal.redoAvailable >= 0) KeepUndone(editor);
      ConsumeUndoStep(journal);
      ForgetRedo(journal);
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
  UndoJournal& journal = editor.journal;
  if (journal.undoAvailable < 0) return;
  const bool canRedo = FileMapForRedo(editor);
  const WaypointKeys keys = editor.waypointKeys;
  const std::string file = journal.NewestFile();
  const std::string undone = journal.NewestAction();
  if (undone == kHelpAction) {
    TellHelpCannotBeUndone(editor);
    editor.activity.Finish(editor);
  } else if (!RestoreNewestStep(editor)) {
    return;
  }
  editor.selection.moveSnapshotTaken = false;
  if (canRedo) {
    MoveStepToRedo(journal, keys);
  } else {
    ForgetRedo(journal);
    ConsumeUndoStep(journal);
  }
  ChangeTool(editor, editor.document.toolIndex);
  NoteOpenMap(editor, editor.ports.files, file);
  if (undone != kHelpAction) {
    const bool isKept = !canRedo && journal.undoneKept;
    editor.note = isKept ? "See File > Recover" : "Undone: " + undone;
  }
}

void MenuRedo(Editor& editor) {
  UndoJournal& journal = editor.journal;
  if (journal.redoAvailable < 0) return;
  const std::string file = RedoFile(journal);
  const LoadReport report = LoadStep(editor, file);
  TellLoadReport(editor, file, report);
  if (report.outcome != LoadOutcome::kLoaded) {
    KeepUndone(editor);
    ForgetRedo(journal);
    return;
  }
  TakeLoaded(editor, journal.redoKeys[journal.NextSlot()]);
  BringBackUndoStep(journal);
  // An Add tool that is chosen starts with nothing selected; this one goes on.
  const Selection selection = editor.selection;
  ChangeTool(editor, editor.document.toolIndex);
  editor.selection = selection;
  editor.selection.moveSnapshotTaken = false;
  NoteOpenMap(editor, editor.ports.files, file);
  editor.note = "Redone: " + journal.NewestAction();
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
