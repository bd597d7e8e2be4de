// The files of the steps that are undone and redone.
#pragma once

#include <optional>
#include <string>

#include "document/edited_map.h"
#include "platform/files.h"

namespace vesmora {

/// A step that could not be filed, in the system's words.
struct SnapshotFailure {
  std::string path;
  std::string reason;
};

/// Files the map as it is, before the edit `actionName`, as the newest undo step; `random` as
/// for WriteMap. Nothing can be redone any more. On failure the older steps stay what they were,
/// but for the oldest of ten, whose file it was to be.
[[nodiscard]] std::optional<SnapshotFailure> FileSnapshot(EditedMap& map, FileCalls& files,
                                                          double random,
                                                          const std::string& actionName);

/// Files the map as it is, before the newest step is undone, and changes nothing of it.
[[nodiscard]] std::optional<SnapshotFailure> FileForRedo(EditedMap& map, FileCalls& files);

/// The file of the step that is redone next.
std::string RedoFile(const UndoJournal& journal);

/// The file of the step that is redone last: the map before anything was undone.
std::string FurthestRedoFile(const UndoJournal& journal);

/// Whether a file in the folder is an undo step's.
bool IsFileOfUndo(const std::string& name);

/// As HoldUndoFolder, but one without undo steps: what lies in the others was lost, and is to be
/// found by a later start.
[[nodiscard]] UndoFolder HoldFolderWithoutSteps(FileCalls& files, const std::string& tempFolder);

/// Deletes every file of steps, those of earlier runs included.
void DeleteSnapshotFiles(const UndoFolder& folder, FileCalls& files);

}  // namespace vesmora
