// The work of each command on one map. Safe to run on several threads, each with a bench of its
// own.
#pragma once

#include "document/prefab_file.h"
#include "map_tool/arguments.h"
#include "map_tool/inputs.h"
#include "map_tool/outcome.h"
#include "map_tool/workbench.h"
#include "platform/files.h"
#include "view/texture.h"

namespace vesmora::map_tool {

/// One map, and what is the same for all of them.
struct Task {
  const Arguments& arguments;
  const Input& input;
  const FileContents& file;
  std::string target;  // of the result; empty for commands that write none
  bool colors = false;
  double random = 0;                 // uniform in [0, 1), for the map's randomId
  const Prefab* prefab = nullptr;    // of an import
  const Texture* texture = nullptr;  // of a filled picture
};

Outcome TellInfo(const Task& task, Workbench& bench);
Outcome CheckOne(const Task& task, Workbench& bench);
/// Compile, resave, rescue, and the import of a prefab.
Outcome MakeMap(const Task& task, Workbench& bench);
Outcome ExportPrefab(const Task& task, Workbench& bench);
Outcome RenderOne(const Task& task, Workbench& bench);
/// Of the two maps the first is the task's.
Outcome DiffTwo(const Task& task, const Input& secondInput, const FileContents& second,
                Workbench& bench);

}  // namespace vesmora::map_tool
