// vesmora-map: what the editor does with map files, without a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/console.h"

namespace vesmora::map_tool {

/// The ways to the world. What is referred to outlives the run.
struct World {
  Console& console;
  FileCalls& files;
  std::function<double()> random;           // uniform in [0, 1)
  std::function<std::string()> tempFolder;  // of this user's own, with a slash; empty if none
  int processors = 1;
  std::string gameFolder;  // as the user's environment names it, with a slash; or empty
};

/// The whole program; `words` are its arguments without its name. Returns the status to end with.
int RunMapTool(const std::vector<std::string>& words, World& world);

}  // namespace vesmora::map_tool
