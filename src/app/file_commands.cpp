#include "app/file_commands.h"

#include "platform/text.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const FileFilter kMapFilter = {"Soldat Map (*.pmp)", "*.PMP"};

/// Choosing the tool refreshes the panel and draws the map.
void ShowFreshView(Editor& editor) {
  EditorState& state = editor.state;
  ResetView(state.view);
  for (std::size_t i = 0; i < 5; ++i) state.show.showFlags[i] = 1;
  state.show.showFlags[static_cast<std::size_t>(ShowFlag::kAdvanced)] = 0;
  ChangeTool(editor.AsEditing(), ToolMode::kEdit);
}

/// What was in progress belonged to the map that is gone.
void ForgetEditing(Editor& editor) {
  editor.state.tool.value = 0;
  editor.state.gesture.End();
  ClearClipboard(editor.state.clipboard);
  ClearSelection(editor.state.selection, editor.ports.window);
  ResetDragState(editor.state.selection);
}

/// The folder of the last map that was chosen in a dialog.
std::string LastFolder(Editor& editor) { return editor.ports.settings.Read("Recent", "Path", ""); }

void StoreLastFolder(Editor& editor, const std::string& path) {
  editor.ports.settings.Write("Recent", "Path", std::string(FolderPart(path)));
}

/// Keeps the file that is about to be replaced as the one backup.
FileStatus BackUp(Editor& editor, const std::string& path) {
  FileCalls& files = editor.ports.files;
  const std::string& folder = editor.ports.tempFolder;
  if (folder.empty() && FileExists(files, path)) {
    return {FileFailure::kError, "There is no temporary folder for the backup."};
  }
  // The save will fail, and a write-protected backup could not be replaced by the next one.
  if (FileExists(files, path) && files.MayWrite(path) < 0) {
    return {FileFailure::kError, files.LastError()};
  }
  // It may have been swept away while the program ran.
  if (IsGone(files, folder)) CreatePrivateFolder(files, folder);
  const std::string backup = folder + "backup.pmp";
  FileStatus status = CopyFileDurably(files, path, backup);
  // Only a file that is certainly not there needs no backup.
  if (status.failure == FileFailure::kMissing) return {};
  if (!status.Ok()) status.reason = "The backup '" + backup + "' failed. " + status.reason;
  return status;
}

/// False, with the user told and file and document as they were, when it failed.
bool SaveTo(Editor& editor, const std::string& path) {
  ChangeTool(editor.AsEditing(), ToolMode::kEdit);
  FileStatus status = BackUp(editor, path);
  if (status.Ok()) status = WriteMap(MapFileContextOf(editor.AsEditing()), path, false);
  if (!status.Ok()) {
    editor.ports.dialogs.Show({.text = "File '" + path + "' could not be saved: " + status.reason,
                               .title = "File error",
                               .icon = MessageIcon::kCritical});
  }
  return status.Ok();
}

}  // namespace

void MenuNew(Editor& editor) {
  ForgetEditing(editor);
  ResetToNewMap(editor.state.document);
  ClearHistory(editor.state.journal);
  ShowFreshView(editor);
}

LoadOutcome OpenMap(Editor& editor, const std::string& path) {
  const LoadOutcome outcome =
      LoadMap(MapFileContextOf(editor.AsEditing()), path, false, editor.state.shiftDown);
  if (outcome == LoadOutcome::kUnreadable) return outcome;
  if (outcome == LoadOutcome::kRefused) ResetToNewMap(editor.state.document);
  if (outcome == LoadOutcome::kLoaded && EndsIgnoringCase(path, "PMP")) {
    AddRecent(editor.state.recent, path);
  }
  ForgetEditing(editor);
  ClearHistory(editor.state.journal);
  ShowFreshView(editor);
  return outcome;
}

void MenuOpen(Editor& editor) {
  const std::string path = editor.ports.dialogs.ChooseFileToOpen(
      {.directory = LastFolder(editor), .fileName = "", .filter = kMapFilter});
  if (path.empty()) return;
  OpenMap(editor, path);
  StoreLastFolder(editor, path);
}

bool MenuSave(Editor& editor) {
  const std::string path = editor.state.document.fileName;
  if (path.empty()) return MenuSaveAs(editor);
  const bool isSaved = SaveTo(editor, path);
  editor.ports.window.RefreshInfoPanel();
  return isSaved;
}

bool MenuSaveAs(Editor& editor) {
  const MapDocument& document = editor.state.document;
  const bool startsRed = document.lastSpawn >= 0 && document.spawns[0].team == 1;
  const std::string path = editor.ports.dialogs.ChooseFileToSave(
      {.directory = LastFolder(editor), .fileName = startsRed ? "ctf_" : "", .filter = kMapFilter});
  if (path.empty()) return false;
  const bool isSaved = SaveTo(editor, path);
  if (isSaved) {
    StoreLastFolder(editor, path);
    editor.state.document.fileName = path;
    // The steps are gone, but Undo keeps its caption until the next snapshot.
    editor.state.journal.undoAvailable = -1;
    // What is still selected can be moved on: that must be a step anew.
    editor.state.selection.moveSnapshotTaken = false;
  }
  editor.ports.window.RefreshInfoPanel();
  return isSaved;
}

}  // namespace vesmora
