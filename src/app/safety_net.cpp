#include "app/safety_net.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "document/checksum.h"
#include "document/lost_maps.h"
#include "document/session_note.h"
#include "document/snapshot.h"
#include "document/undo_file.h"
#include "platform/text.h"

namespace vesmora {
namespace {

// In the order of RescueCause.
constexpr std::array<std::string_view, 7> kCauseTexts = {
    "Replaced by a new map",        "Replaced by another map",
    "Closed without being saved",   "The session ended",
    "Vesmora ended unexpectedly",   "An undo file was missing",
    "Undone, and cannot be redone",
};

std::string RescuePath(const Ports& ports) { return ports.settingsFolder + "Rescue/"; }

RescueFolder RescueFolderOf(const Ports& ports) {
  return {.files = ports.files, .path = RescuePath(ports), .now = ports.now()};
}

/// Of the map without what is under construction.
std::uint64_t PresentMap(Editor& editor) {
  return WithoutTriangle(editor, [&] { return Fingerprint(editor.document); });
}

std::vector<std::byte> OpenMapBytes(Editor& editor) {
  return WithoutTriangle(editor,
                         [&] { return ExactUndoFile(editor.document, editor.selection, 0); });
}

/// A map of the one that is open, as it is or as it was, as an undo file's bytes.
FileStatus KeepBytes(Editor& editor, RescueCause cause, std::span<const std::byte> bytes,
                     const std::string& spared, std::string& kept) {
  const RescueFolder folder = RescueFolderOf(editor.ports);
  const std::string& path = editor.document.fileName;
  const RescueLabel label{
      .cause = cause, .time = folder.now, .mapPath = path.empty() ? editor.rescuedPath : path};
  return KeepRescued(folder, bytes, label, spared, kept);
}

/// Succeeds without doing anything when nothing would be lost.
FileStatus Keep(Editor& editor, RescueCause cause, const std::string& spared) {
  if (!IsChanged(editor)) return {};
  std::string kept;
  FileStatus status = KeepBytes(editor, cause, OpenMapBytes(editor), spared, kept);
  if (!status.Ok()) return status;
  editor.recoveredFrom = kept;
  editor.savedMap = PresentMap(editor);
  NoteOpenMap(editor, editor.ports.files, "");
  return status;
}

}  // namespace

void CountRecoverable(Editor& editor) {
  editor.recoverable = static_cast<int>(ListRecoverable(editor).size());
}

void NoteSaved(Editor& editor) {
  editor.savedMap = PresentMap(editor);
  editor.recoveredFrom.clear();
  editor.rescuedPath.clear();
  NoteOpenMap(editor, editor.ports.files, "");
}

void NoteRecovered(Editor& editor, const std::string& path, const std::string& mapPath) {
  editor.savedMap = Fingerprint(editor.document);
  editor.recoveredFrom = path;
  editor.rescuedPath = mapPath;
  NoteOpenMap(editor, editor.ports.files, "");
}

bool IsChanged(Editor& editor) {
  const std::string& from = editor.recoveredFrom;
  return PresentMap(editor) != editor.savedMap ||
         (!from.empty() && IsGone(editor.ports.files, from));
}

bool PutAside(Editor& editor, RescueCause cause, const std::string& opened) {
  const FileStatus status = Keep(editor, cause, opened.empty() ? editor.recoveredFrom : opened);
  CountRecoverable(editor);
  decltype(editor.refused) refused;
  if (!status.Ok()) refused.emplace(cause, PresentMap(editor));
  const bool isGivenUp = refused && refused == editor.refused;
  editor.refused = isGivenUp ? std::nullopt : refused;
  if (!editor.refused) return true;
  editor.ports.dialogs.Show({.text = "The map could not be kept in '" + RescuePath(editor.ports) +
                                     "': " + status.reason +
                                     "\nSave it first, or do the same again to give it up.",
                             .title = "File error",
                             .icon = MessageIcon::kCritical});
  return false;
}

bool PutAsideAtSessionEnd(Editor& editor) {
  if (Keep(editor, RescueCause::kSessionEnd, editor.recoveredFrom).Ok()) return true;
  FileCalls& files = editor.ports.files;
  WithoutTriangle(editor, [&] { return FileSnapshot(editor, files, editor.ports.random(), ""); });
  return false;
}

bool KeepUndone(Editor& editor) {
  const UndoJournal& journal = editor.journal;
  const bool hasRedo = journal.redoAvailable >= 0;
  if (hasRedo ? !IsStillHeld(editor.ports.files, journal.folder) : !IsChanged(editor)) return false;
  const auto bytes =
      hasRedo ? ReadFile(editor.ports.files, FurthestRedoFile(journal), kUndoFileSize).bytes
              : OpenMapBytes(editor);
  std::string kept;
  const bool isKept =
      bytes.size() == kUndoFileSize &&
      KeepBytes(editor, RescueCause::kUndone, bytes, editor.recoveredFrom, kept).Ok();
  CountRecoverable(editor);
  return isKept;
}

void DropRecovered(Editor& editor) {
  if (editor.recoveredFrom.empty()) return;
  DeleteFile(editor.ports.files, editor.recoveredFrom);
  CountRecoverable(editor);
}

FileStatus FindLostMaps(Editor& editor) {
  Ports& ports = editor.ports;
  // An editor that has died, or will, may have had another temporary folder.
  std::vector<std::string> temps = {ports.tempFolder};
  std::string inUse = ports.tempFolder;
  const std::string known = ports.settings.Read("Recent", "Temp", "");
  for (std::string_view rest = known; !rest.empty();) {
    const std::string temp(TakeUpTo(rest, '\n'));
    if (temp == ports.tempFolder || IsGone(ports.files, temp)) continue;
    temps.push_back(temp);
    inUse += '\n' + temp;
  }
  if (inUse != known) {
    ports.settings.Write("Recent", "Temp", inUse);
    static_cast<void>(ports.settings.Store());  // next time, then
  }
  FileStatus problem = RescueLostMaps(RescueFolderOf(ports), editor.journal.folder, temps);
  SweepLeftOvers(ports.files, RescuePath(ports));
  SweepLeftOvers(ports.files, ports.tempFolder);
  CountRecoverable(editor);
  return problem;
}

bool CanRecover(const Editor& editor) { return editor.recoverable > 0; }

std::vector<std::string> ListRecoverable(const Editor& editor) {
  return ListRescued(editor.ports.files, RescuePath(editor.ports));
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
