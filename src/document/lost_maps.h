// What an editor that was killed, or lost its power, has left behind: the files of its steps, and a
// note beside them of what they belong to.
#pragma once

#include <cstdint>
#include <string>

#include "document/edited_map.h"
#include "platform/files.h"

namespace vesmora {

/// Notes beside the undo files what is open, so that a next run can tell what was lost. Steps filed
/// later need no note. `file` holds the map as it is: one of a step just undone or redone, or empty
/// when it is as its own file, or a new map, has it. That it cannot be written is no matter for
/// anybody: an older state would come back.
void NoteOpenMap(const EditedMap& map, FileCalls& files, const std::string& file);

/// Keeps in `rescueFolder` the newest whole map of each dead editor, unless it is as it was last
/// saved or empty, and deletes what it has left: in the folder `own`, which this editor has just
/// been given, and in those beside it. What cannot be kept now stays under a name of its own, and
/// is found by the next call. False when `own` is still full of it: it is not to be written to.
/// `now` as for KeepRescued.
[[nodiscard]] bool RescueLostMaps(FileCalls& files, const UndoFolder& own,
                                  const std::string& rescueFolder, std::int64_t now);

}  // namespace vesmora
