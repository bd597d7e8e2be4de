// What the program needs of the system that it runs on.
#pragma once

#include <functional>
#include <string>

#include "platform/console.h"

namespace vesmora::map_tool {

/// The ways to the world. What is referred to outlives the run.
struct World {
  Console& console;
  FileCalls& files;
  std::function<double()> random;           // uniform in [0, 1)
  std::function<std::string()> tempFolder;  // of this user's own, with a slash; empty if none
  int processors = 1;
  std::string gameFolder;   // as the user's environment names it, with a slash; or empty
  bool wantsColors = true;  // on a terminal
};

}  // namespace vesmora::map_tool
