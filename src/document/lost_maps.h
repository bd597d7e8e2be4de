// What an editor that was killed, or lost its power, has left behind: the files of its steps, and a
// note beside them of what they belong to.
#pragma once

#include <string>
#include <vector>

#include "document/rescue.h"
#include "platform/temp_folder.h"

namespace vesmora {

/// Keeps the newest whole map of each dead editor, unless it is as it was last saved or empty, and
/// deletes what the editor has left: in the folder `own`, which this one has just been given, and
/// below the temporary folders `temps`. What cannot be kept now goes out of the way under a name of
/// its own and is found by the next call; `own` changes when it could not even be moved. The first
/// thing that failed is returned.
FileStatus RescueLostMaps(const RescueFolder& rescue, UndoFolder& own,
                          const std::vector<std::string>& temps);

}  // namespace vesmora
