// Where the program finds what came with it, and the game.
#pragma once

#include <string>

#include "platform/files.h"

namespace vesmora {

/// Both end with a slash.
struct ProgramFolders {
  std::string program;  // holds Prefab, Alphabet and Help
  std::string game;
};

/// `executableFolder` ends with a slash, `namedGame` is the game's folder as the user's
/// environment names it, or empty. What came with the program lies beside it or, when it is
/// installed for the whole system, in ../share/vesmora. The game is in the folder above the
/// program; `namedGame` counts only when it is not there, as after such an installation.
ProgramFolders FindProgramFolders(FileCalls& calls, const std::string& executableFolder,
                                  const std::string& namedGame);

}  // namespace vesmora
