// The files by which the game is told what to play.
#pragma once

#include <string>
#include <string_view>

#include "platform/profile_files.h"

namespace vesmora {

struct GameFolder {
  FileCalls& files;
  const std::string& path;  // with a slash at its end
};

/// The full path of something in the game's folder, its parts separated by slashes. Where
/// the file system tells cases apart and has no such name it is one that differs in case
/// only; a name that is nowhere stays as given.
std::string GamePath(const GameFolder& game, std::string_view parts);

/// Lets the game start with the map `fileName` and in the style that its name asks for.
/// Only the name counts: it must be that of a map in the game's MAPS folder, else nothing
/// is done. Empty on success; otherwise words for the user, and both files are as before.
std::string PointGameAt(const GameFolder& game, const std::string& fileName);

}  // namespace vesmora
