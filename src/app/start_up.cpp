#include "app/start_up.h"

#include "app/file_commands.h"
#include "app/safety_net.h"
#include "app/window_placement.h"
#include "document/snapshot.h"
#include "launch/game_files.h"
#include "platform/text.h"
#include "tools/prefab_import.h"

namespace vesmora {
namespace {

constexpr std::size_t kShortestArgument = 5;  // characters

/// The file that the command line names, without its quotes; empty for none.
std::string NamedFile(std::string_view arguments) {
  std::string_view name = TrimBlanks(arguments);
  if (name.size() < kShortestArgument) return {};
  if (name.front() == '"') name = name.substr(1, name.size() - 2);
  return AbsolutePath(std::string(name));
}

void WarnWithoutGame(Editor& editor) {
  const Ports& ports = editor.ports;
  const std::string game = GamePath({ports.files, ports.gameFolder}, "Soldat.exe");
  if (FileExists(editor.ports.files, game)) return;
  editor.ports.dialogs.Show(
      {.text = game + " not found.\nExtract Vesmora in Soldat directory for full effect.",
       .title = "Warning",
       .icon = MessageIcon::kExclamation});
}

void WarnAboutTempFolder(Editor& editor) {
  const Ports& ports = editor.ports;
  if (ports.tempProblem.empty()) return;
  const std::string other = ports.tempFolder.empty()
                                ? "Nothing can be undone."
                                : "Undo files go to '" + ports.tempFolder + "'.";
  editor.ports.dialogs.Show({.text = ports.tempProblem + "\n" + other,
                             .title = "Warning",
                             .icon = MessageIcon::kExclamation});
}

FileStatus StoreSettings(Editor& editor) {
  Settings& settings = editor.ports.settings;
  StoreRecent(editor.recent, settings);
  StorePlacement(editor.ports.window.Placement(), settings);
  return settings.Store();
}

/// Another editor's, if somebody has given it the folder, are not ours to delete.
void DeleteOwnSnapshots(Editor& editor) {
  FileCalls& files = editor.ports.files;
  UndoFolder& folder = editor.journal.folder;
  if (!IsStillHeld(files, folder)) return;
  DeleteSnapshotFiles(folder, files);
  const std::string path = folder.path;
  folder = {.temp = folder.temp, .path = ""};
  if (path != folder.temp) files.RemoveFolder(path.substr(0, path.size() - 1));
}

void TellLostMaps(Editor& editor, const FileStatus& problem) {
  if (problem.Ok()) return;
  editor.ports.dialogs.Show({.text = "A map that was open when Vesmora ended cannot be kept for "
                                     "Recover: " +
                                     problem.reason + "\nThe next start tries again.",
                             .title = "File error",
                             .icon = MessageIcon::kExclamation});
}

}  // namespace

std::string WindowTitle(std::string_view version, std::string_view comments) {
  const std::string title = "Vesmora  " + std::string(version);
  return comments == "BETA" ? title + " BETA" : title;
}

void OpenNamedFile(Editor& editor, const std::string& path) {
  if (EndsIgnoringCase(path, "PMP")) {
    OpenMap(editor, path);
    return;
  }
  if (EndsIgnoringCase(path, "PRE")) {
    ImportPrefab(editor, path, ImportManner::kPlaced);
    RedrawMap(editor);
    RefreshInfoPanel(editor);
    return;
  }
  editor.ports.dialogs.Show(
      {.text = "Unknow filetype", .title = "Argument file open", .icon = MessageIcon::kCritical});
}

void OpenDroppedFile(Editor& editor, const std::string& path) {
  if (EndsIgnoringCase(path, "PRE")) TakeUndoSnapshot(editor, "Import");
  OpenNamedFile(editor, path);
}

void FirstActivation(Editor& editor, const std::string& arguments) {
  const FileStatus lostMaps = FindLostMaps(editor);
  StartNewMap(editor);
  editor.ports.window.RestorePlacement();
  editor.ports.window.LayOut();
  const std::string named = NamedFile(arguments);
  if (!named.empty()) OpenNamedFile(editor, named);
  LoadRecent(editor.recent, editor.ports.settings);
  WarnWithoutGame(editor);
  WarnAboutTempFolder(editor);
  TellLostMaps(editor, lostMaps);
  if (CanRecover(editor)) editor.note = "See File > Recover";
  editor.redrawSuppressed = false;
  RefreshAll(editor);
}

bool CleanUp(Editor& editor) {
  const FileStatus status = StoreSettings(editor);
  if (!status.Ok()) {
    editor.ports.dialogs.Show({.text = "The settings could not be saved: " + status.reason,
                               .title = "File error",
                               .icon = MessageIcon::kExclamation});
  }
  if (!PutAside(editor, RescueCause::kExit)) return false;
  DeleteOwnSnapshots(editor);
  return true;
}

void CleanUpAtSessionEnd(Editor& editor) {
  static_cast<void>(StoreSettings(editor));  // there is nobody to tell any more
  if (PutAsideAtSessionEnd(editor)) DeleteOwnSnapshots(editor);
}

void MenuRekentti(Editor& editor, int slot) {
  std::string& path = editor.recent.slots[static_cast<std::size_t>(slot)];
  // A file that is there but cannot be read now keeps its place.
  if (OpenMap(editor, std::string(path)) == LoadOutcome::kRefused) path.clear();
  RefreshInfoPanel(editor);
}

}  // namespace vesmora
