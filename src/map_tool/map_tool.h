// vesmora-map: what the editor does with map files, without a window.
#pragma once

#include <string>
#include <vector>

#include "map_tool/world.h"

namespace vesmora::map_tool {

/// The whole program; `words` are its arguments without its name. Returns the status to end with.
int RunMapTool(const std::vector<std::string>& words, World& world);

}  // namespace vesmora::map_tool
