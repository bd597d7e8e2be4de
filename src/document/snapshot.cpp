#include "document/snapshot.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "document/map_file.h"
#include "platform/temp_folder.h"

namespace vesmora {
namespace {

constexpr std::string_view kFilePrefix = "VesmoraUndo";

std::string FileNamed(const UndoJournal& journal, const std::string& ending) {
  return journal.folder + std::string(kFilePrefix) + ending + ".tmp";
}

/// Writes a spare file and lets it and the slot's file change places, so that a
/// failure leaves the step that the slot held before. No name is ever moved over an
/// existing file: file systems write such a file out at once, which takes ten times
/// as long as all the rest.
FileStatus WriteSnapshot(EditedMap& map, FileCalls& files, double random, int slot) {
  UndoJournal& journal = map.journal;
  const std::string path = FileNamed(journal, std::to_string(slot));
  const std::string spare = FileNamed(journal, "Spare");
  const std::string old = FileNamed(journal, "Old");
  FileStatus status = WriteMap(map.document, map.selection, files, random, spare, true).status;
  if (!status.Ok()) {
    DeleteFile(files, spare);
    return status;
  }
  const bool hadOld = MoveFileOver(files, path, old).Ok();
  status = MoveFileOver(files, spare, path);
  if (!hadOld) return status;
  const FileStatus back = MoveFileOver(files, old, status.Ok() ? spare : path);
  // The older step is where it is; that is where an undo finds it.
  if (!status.Ok() && !back.Ok()) journal.undoFiles[static_cast<std::size_t>(slot)] = old;
  return status;
}

}  // namespace

std::optional<SnapshotFailure> FileSnapshot(EditedMap& map, FileCalls& files, double random,
                                            const std::string& actionName) {
  GiveWaypointKeys(map);
  UndoJournal& journal = map.journal;
  const auto slot = static_cast<std::size_t>((journal.undoSlot + 1) % kUndoSteps);
  const std::string path = FileNamed(journal, std::to_string(slot));
  if (journal.folder.empty()) return SnapshotFailure{path, "There is no temporary folder."};
  // It may have been swept away while the program ran.
  if (IsGone(files, journal.folder)) {
    CreatePrivateFolder(files, journal.folder);  // if not, the write says why
    HoldFolder(journal.folder);
  }
  const FileStatus status = WriteSnapshot(map, files, random, static_cast<int>(slot));
  if (!status.Ok()) return SnapshotFailure{path, status.reason};
  journal.undoAvailable =
      static_cast<std::int16_t>(std::min(journal.undoAvailable + 1, kUndoSteps - 1));
  journal.undoSlot = static_cast<std::int16_t>(slot);
  journal.undoFiles[slot] = path;
  journal.undoActions[slot] = actionName;
  journal.waypointKeys[slot] = map.waypointKeys;
  RefreshUndoCaption(journal);
  return std::nullopt;
}

void DeleteSnapshotFiles(const UndoJournal& journal, FileCalls& files) {
  // Not ListFiles: it looks at every file, and on Windows the folder holds everybody's.
  std::vector<std::string> names;
  files.ListFolder(journal.folder, names);
  for (const std::string& name : names) {
    const bool isSnapshot =
        name.starts_with(kFilePrefix) && name.find('.', kFilePrefix.size()) != std::string::npos;
    if (isSnapshot) DeleteFile(files, journal.folder + name);
  }
}

}  // namespace vesmora
