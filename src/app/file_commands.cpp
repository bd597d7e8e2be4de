#include "app/file_commands.h"

#include "app/file_messages.h"
#include "app/safety_net.h"
#include "document/map_backup.h"
#include "launch/game_files.h"
#include "platform/text.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

const FileFilter kMapFilter = {"Soldat Map (*.pmp)", "*.PMP"};

/// Choosing the tool refreshes the panel and draws the map.
void ShowFreshView(Editor& editor) {
  ResetView(editor.view);
  auto& flags = editor.show.showFlags;
  flags.fill(1);
  flags[static_cast<std::size_t>(ShowFlag::kAdvanced)] = 0;
  flags.back() = 0;
  ChangeTool(editor, ToolMode::kEdit);
}

/// What was in progress belonged to the map that is gone.
void ForgetEditing(Editor& editor) {
  editor.clipboard.Clear();
  ClearSelection(editor);
  ClearHistory(editor.journal);
}

/// The folder of the last map that was chosen in a dialog, at first the one that the game plays
/// from.
std::string LastFolder(Editor& editor) {
  const Ports& ports = editor.ports;
  const std::string last = ports.settings.Read("Recent", "Path", "");
  if (!last.empty()) return last;
  const std::string maps = AbsolutePath(GamePath({ports.files, ports.gameFolder}, "MAPS"));
  FileInfo info;
  const bool isThere = ports.files.Info(maps, info) >= 0 && info.kind == FileKind::kFolder;
  return isThere ? maps + "/" : "";
}

void StoreLastFolder(Editor& editor, const std::string& path) {
  editor.ports.settings.Write("Recent", "Path", std::string(FolderPart(path)));
}

/// The map is in the file of this name from now on.
void TakeName(Editor& editor, const std::string& path) {
  StoreLastFolder(editor, path);
  editor.document.fileName = path;
  // The steps are gone, but Undo keeps its caption until the next snapshot.
  editor.journal.undoAvailable = -1;
  ForgetRedo(editor.journal);
  // What is still selected can be moved on: that must be a step anew.
  editor.selection.moveSnapshotTaken = false;
}

enum class SaveManner { kAgain, kAs };

/// False, with the user told and file and document as they were, when it failed.
bool SaveTo(Editor& editor, const std::string& path, SaveManner manner) {
  FileCalls& files = editor.ports.files;
  ChangeTool(editor, ToolMode::kEdit);
  WriteReport report{.status = BackUpMap(files, editor.ports.tempFolder, path), .findings = {}};
  if (report.status.Ok()) {
    report = WriteMap(editor.document, editor.selection, files, editor.ports.random(), path, false);
  }
  TellSaveStatus(editor, path, report.status);
  if (report.status.Ok()) {
    editor.note = "Saved " + editor.ports.timeOfDay();
    if (manner == SaveManner::kAs) TakeName(editor, path);
    DropRecovered(editor);
    NoteSaved(editor);  // before anything is told: the program may be ended meanwhile
    SweepLeftOvers(files, std::string(FolderPart(path)));
    TellSaveFindings(editor, report.findings);
  }
  RefreshInfoPanel(editor);
  return report.status.Ok();
}

}  // namespace

void MenuNew(Editor& editor) {
  if (PutAside(editor, RescueCause::kNew)) StartNewMap(editor);
}

void StartNewMap(Editor& editor) {
  ForgetEditing(editor);
  ResetToNewMap(editor.document);
  ShowFreshView(editor);
  NoteSaved(editor);
}

LoadOutcome OpenMap(Editor& editor, const std::string& path) {
  if (!PutAside(editor, RescueCause::kOpen)) return LoadOutcome::kUnreadable;
  const LoadReport report =
      LoadMap(editor.document, editor.selection, editor.ports.files, path, false, editor.shiftDown);
  if (report.outcome != LoadOutcome::kUnreadable) ForgetEditing(editor);
  TellLoadReport(editor, path, report);
  if (report.outcome == LoadOutcome::kUnreadable) return report.outcome;
  if (report.outcome == LoadOutcome::kRefused) ResetToNewMap(editor.document);
  if (report.outcome == LoadOutcome::kLoaded && EndsIgnoringCase(path, "PMP")) {
    AddRecent(editor.recent, path);
  }
  ShowFreshView(editor);
  NoteSaved(editor);
  return report.outcome;
}

void MenuRecover(Editor& editor) {
  const std::string path = editor.ports.window.ShowRecover();
  CountRecoverable(editor);
  if (path.empty()) return;
  // Read before the open map is kept, for which another may go.
  const auto rescued = ReadRescued(editor.ports.files, path);
  if (!rescued) {
    editor.ports.dialogs.Show({.text = "File '" + path + "' could not be read.",
                               .title = "File error",
                               .icon = MessageIcon::kCritical});
    return;
  }
  if (!PutAside(editor, RescueCause::kOpen, path)) return;
  ForgetEditing(editor);
  editor.document = *rescued->map;
  ShowFreshView(editor);
  NoteRecovered(editor, path, rescued->label.mapPath);
  editor.note = "Recovered";
}

void MenuOpen(Editor& editor) {
  const std::string path = editor.ports.dialogs.ChooseFileToOpen(
      {.title = "Open", .directory = LastFolder(editor), .fileName = "", .filter = kMapFilter});
  if (path.empty()) return;
  OpenMap(editor, path);
  StoreLastFolder(editor, path);
}

bool MenuSave(Editor& editor) {
  const std::string path = editor.document.fileName;
  if (path.empty()) return MenuSaveAs(editor);
  return SaveTo(editor, path, SaveManner::kAgain);
}

bool MenuSaveAs(Editor& editor) {
  const auto& spawns = editor.document.spawns;
  const bool startsRed = !spawns.Empty() && spawns[0].team == kRedTeam;
  const std::string path =
      editor.ports.dialogs.ChooseFileToSave({.title = "Save As",
                                             .directory = LastFolder(editor),
                                             .fileName = startsRed ? "ctf_" : "",
                                             .filter = kMapFilter});
  if (path.empty()) return false;
  return SaveTo(editor, path, SaveManner::kAs);
}

}  // namespace vesmora
