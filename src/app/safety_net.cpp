#include "app/safety_net.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "document/checksum.h"
#include "document/lost_maps.h"
#include "document/snapshot.h"
#include "document/undo_file.h"
#include "platform/text.h"

namespace vesmora {
namespace {

// In the order of RescueCause.
constexpr std::array<std::string_view, 6> kCauseTexts = {
    "Replaced by a new map", "Replaced by another map",    "Closed without being saved",
    "The session ended",     "Vesmora ended unexpectedly", "An undo file was missing",
};

std::string RescueFolder(const Ports& ports) { return ports.settingsFolder + "Rescue/"; }

/// Succeeds without doing anything when nothing would be lost.
FileStatus Keep(Editor& editor, RescueCause cause) {
  if (!IsChanged(editor)) return {};
  FileCalls& files = editor.ports.files;
  const auto bytes =
      WithoutTriangle(editor, [&] { return ExactUndoFile(editor.document, editor.selection, 0); });
  const std::int64_t now = editor.ports.now();
  FileStatus status =
      KeepRescued(files, RescueFolder(editor.ports), bytes,
                  {.cause = cause, .time = now, .mapPath = editor.document.fileName}, now);
  const std::uint64_t present = Fingerprint(editor.document);
  editor.givenUpMap = status.Ok() ? 0 : present;
  if (!status.Ok()) return status;
  editor.savedMap = present;
  NoteOpenMap(editor, files, "");
  return status;
}

}  // namespace

void CountRecoverable(Editor& editor) {
  editor.recoverable = static_cast<int>(ListRecoverable(editor).size());
}

void NoteSaved(Editor& editor) {
  editor.savedMap = Fingerprint(editor.document);
  editor.recoveredFrom.clear();
  NoteOpenMap(editor, editor.ports.files, "");
}

bool IsChanged(const Editor& editor) {
  const std::uint64_t present = Fingerprint(editor.document);
  return present != editor.savedMap && !IsEmpty(editor.document);
}

bool PutAside(Editor& editor, RescueCause cause) {
  if (editor.givenUpMap != 0 && editor.givenUpMap == Fingerprint(editor.document)) return true;
  const FileStatus status = Keep(editor, cause);
  CountRecoverable(editor);
  if (status.Ok()) return true;
  editor.ports.dialogs.Show({.text = "The map could not be kept in '" + RescueFolder(editor.ports) +
                                     "': " + status.reason +
                                     "\nSave it first, or do the same again to give it up.",
                             .title = "File error",
                             .icon = MessageIcon::kCritical});
  return false;
}

bool PutAsideAtSessionEnd(Editor& editor) {
  if (Keep(editor, RescueCause::kSessionEnd).Ok()) return true;
  FileCalls& files = editor.ports.files;
  WithoutTriangle(editor, [&] { return FileSnapshot(editor, files, editor.ports.random(), ""); });
  return false;
}

void DropRecovered(Editor& editor) {
  DeleteFile(editor.ports.files, editor.recoveredFrom);
  CountRecoverable(editor);
}

void FindLostMaps(Editor& editor) {
  FileCalls& files = editor.ports.files;
  const std::string folder = RescueFolder(editor.ports);
  UndoFolder& own = editor.journal.folder;
  if (!RescueLostMaps(files, own, folder, editor.ports.now())) {
    UndoFolder full = own;  // held until another one is
    own = HoldUndoFolder(files, own.temp);
    LetGo(full);
  }
  SweepLeftOvers(files, folder);
  SweepLeftOvers(files, editor.ports.tempFolder);
  CountRecoverable(editor);
}

bool CanRecover(const Editor& editor) { return editor.recoverable > 0; }

std::vector<std::string> ListRecoverable(const Editor& editor) {
  return ListRescued(editor.ports.files, RescueFolder(editor.ports));
}

RecoverContents ShowRecoverable(const Editor& editor, const std::string& path) {
  RecoverContents contents;
  auto rescued = ReadRescued(editor.ports.files, path);
  if (!rescued) return contents;
  const RescueLabel& label = rescued->label;
  const std::string_view name = FileNamePart(label.mapPath);
  contents.lNimi = name.empty() ? "New map" : name;
  contents.lKansio = FolderPart(label.mapPath);
  contents.time = label.time;
  contents.lSyy = kCauseTexts[static_cast<std::size_t>(label.cause)];
  VisitTables(*rescued->map, [&](const auto& table) {
    if (!contents.lMaara.empty()) contents.lMaara += '\n';
    contents.lMaara += std::to_string(table.Count());
  });
  contents.map = std::move(rescued->map);
  return contents;
}

}  // namespace vesmora
