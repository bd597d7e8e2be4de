// The files of the undo steps.
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
/// for WriteMap. On failure the older steps stay what they were.
[[nodiscard]] std::optional<SnapshotFailure> FileSnapshot(EditedMap& map, FileCalls& files,
                                                          double random,
                                                          const std::string& actionName);

/// Deletes every snapshot file of the folder, those of earlier runs included.
void DeleteSnapshotFiles(const UndoJournal& journal, FileCalls& files);

}  // namespace vesmora
