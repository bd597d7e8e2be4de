#include "app/start_up.h"

#include "app/file_commands.h"
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
  MenuNew(editor);
  editor.ports.window.RestorePlacement();
  editor.ports.window.LayOut();
  const std::string named = NamedFile(arguments);
  if (!named.empty()) OpenNamedFile(editor, named);
  LoadRecent(editor.recent, editor.ports.settings);
  WarnWithoutGame(editor);
  editor.redrawSuppressed = false;
  RefreshAll(editor);
}

void CleanUp(Editor& editor) {
  StoreRecent(editor.recent, editor.ports.settings);
  StorePlacement(editor.ports.window.Placement(), editor.ports.settings);
  DeleteSnapshotFiles(editor.journal, editor.ports.files);
}

void MenuRekentti(Editor& editor, int slot) {
  std::string& path = editor.recent.slots[static_cast<std::size_t>(slot)];
  // A file that is there but cannot be read now keeps its place.
  if (OpenMap(editor, std::string(path)) == LoadOutcome::kRefused) path.clear();
  RefreshInfoPanel(editor);
}

}  // namespace vesmora
