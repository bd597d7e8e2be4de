// The ways to the world that the program is given.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "platform/file_calls.h"
#include "platform/programs.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "platform/window_port.h"

namespace vesmora {

/// What is referred to outlives the ports.
struct Ports {
  FileCalls& files;
  Dialogs& dialogs;
  WindowPort& window;
  Settings& settings;
  Shell& shell;
  Programs& programs;
  std::function<double()> random;          // uniform in [0, 1)
  std::function<std::string()> timeOfDay;  // "15:03"
  std::function<std::int64_t()> now;       // milliseconds since 1970
  // Folders end with a slash.
  std::string tempFolder;      // of this user's own; empty when there is none
  std::string tempProblem;     // why it is not the usual one, for the user; empty if it is
  std::string settingsFolder;  // of this user, may be missing yet
  std::string programFolder;   // the program with Prefab, Alphabet and Help
  std::string gameFolder;      // the one above, where the game lies
};

}  // namespace vesmora
