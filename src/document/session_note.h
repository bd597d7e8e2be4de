// A note beside the undo files of what is open, so that a next run can tell what was lost when
// this one dies. Steps that are filed later need no note.
#pragma once

#include <cstdint>
#include <string>

#include "document/edited_map.h"
#include "platform/files.h"

namespace vesmora {

struct SessionNote {
  std::int32_t sequence = 0;   // of the newest file when it was written
  std::uint64_t savedMap = 0;  // fingerprint of the map as it was opened, saved or kept
  std::string file;            // in the same folder, the map as it was then; empty: as saved
  std::string mapPath;         // of the map's file
};

/// `file` is the path of the file of a step just undone or redone, or empty. A failure is ignored:
/// then an older state comes back. Nothing is written to a folder that is another editor's by now.
void NoteOpenMap(const EditedMap& map, FileCalls& files, const std::string& file);

/// As it was last written there; an empty one when it cannot be read.
SessionNote ReadSessionNote(FileCalls& files, const std::string& folder);

/// Whether a file in the folder is the note.
bool IsSessionNote(const std::string& name);

}  // namespace vesmora
