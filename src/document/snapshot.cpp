#include "document/snapshot.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "document/map_file.h"
#include "document/session_note.h"

namespace vesmora {
namespace {

constexpr std::string_view kUndoPrefix = "VesmoraUndo";
constexpr std::string_view kRedoPrefix = "VesmoraRedo";

std::string FileInSlot(const UndoJournal& journal, std::string_view prefix, std::size_t slot) {
  return journal.folder.path + std::string(prefix) + std::to_string(slot) + ".tmp";
}

/// With another folder, and therefore without any step, when the one that the files were in has
/// been swept away while the program ran: under its name there may be another editor's by now.
void RequireFolder(EditedMap& map, FileCalls& files) {
  UndoJournal& journal = map.journal;
  if (IsStillHeld(files, journal.folder)) return;
  const std::string temp = journal.folder.temp;
  journal.folder = {};
  journal.undoAvailable = -1;
  RefreshUndoCaption(journal);
  journal.folder = HoldFolderWithoutSteps(files, temp);
  NoteOpenMap(map, files, "");
}

std::optional<SnapshotFailure> FailureOf(const std::string& path, const FileStatus& status) {
  if (status.Ok()) return std::nullopt;
  return SnapshotFailure{path, status.reason};
}

}  // namespace

std::optional<SnapshotFailure> FileSnapshot(EditedMap& map, FileCalls& files, double random,
                                            const std::string& actionName) {
  GiveWaypointKeys(map);
  UndoJournal& journal = map.journal;
  ForgetRedo(journal);
  journal.undoneKept = false;
  RequireFolder(map, files);
  const std::string path = FileInSlot(journal, kUndoPrefix, journal.NextSlot());
  if (journal.folder.path.empty()) return SnapshotFailure{path, "There is no temporary folder."};
  const FileStatus status = WriteMap(map.document, map.selection, files, random, path, true,
                                     {.sequence = ++journal.sequence})
                                .status;
  if (status.Ok()) {
    AddUndoStep(journal, path, actionName, map.waypointKeys);
  } else {
    DeleteFile(files, path);
    if (journal.undoAvailable == kUndoSteps - 1) --journal.undoAvailable;
  }
  return FailureOf(path, status);
}

std::optional<SnapshotFailure> FileForRedo(EditedMap& map, FileCalls& files) {
  UndoJournal& journal = map.journal;
  const std::string path =
      FileInSlot(journal, kRedoPrefix, static_cast<std::size_t>(journal.undoSlot));
  const auto bytes = ExactUndoFile(map.document, map.selection, ++journal.sequence);
  const FileStatus status = WriteFileInPlace(files, path, bytes);
  if (!status.Ok()) DeleteFile(files, path);
  return FailureOf(path, status);
}

std::string RedoFile(const UndoJournal& journal) {
  return FileInSlot(journal, kRedoPrefix, journal.NextSlot());
}

std::string FurthestRedoFile(const UndoJournal& journal) {
  const int slot = (journal.undoSlot + 1 + journal.redoAvailable) % kUndoSteps;
  return FileInSlot(journal, kRedoPrefix, static_cast<std::size_t>(slot));
}

bool IsFileOfUndo(const std::string& name) {
  return name.starts_with(kUndoPrefix) && !IsSessionNote(name);
}

UndoFolder HoldFolderWithoutSteps(FileCalls& files, const std::string& tempFolder) {
  std::vector<UndoFolder> others;  // held meanwhile, so that each comes once
  while (true) {
    UndoFolder folder = HoldUndoFolder(files, tempFolder);
    if (!folder.hold.IsHeld()) return folder;  // none, or a new one
    std::vector<std::string> names;
    const bool isRead = files.ListFolder(folder.path, names) >= 0;
    if (isRead && std::ranges::none_of(names, IsFileOfUndo)) return folder;
    others.push_back(std::move(folder));
  }
}

void DeleteSnapshotFiles(const UndoFolder& folder, FileCalls& files) {
  // Not ListFiles: it looks at every file, and on Windows the folder holds everybody's.
  std::vector<std::string> names;
  files.ListFolder(folder.path, names);
  for (const std::string& name : names) {
    const bool isOfStep = name.starts_with(kUndoPrefix) || name.starts_with(kRedoPrefix);
    if (isOfStep && name.find('.', kUndoPrefix.size()) != std::string::npos) {
      DeleteFile(files, folder.path + name);
    }
  }
}

}  // namespace vesmora
