// Where temporary files go.
#pragma once

#include <string>

#include "platform/files.h"

namespace vesmora {

/// A folder of this user's own for temporary files, with a trailing slash; empty when
/// there is none, and then `status` says why. Where users share the system's temporary
/// folder it is one inside that only this user can enter; whatever another user put under
/// its name is left alone and a fresh name taken.
std::string PrivateTempFolder(FileCalls& calls, FileStatus& status);

/// The folder for this running program's undo files, with a trailing slash: the
/// temporary folder itself or, while other running editors hold it, a folder inside it
/// of its own. Held until the program ends, however it ends; empty when there is none.
std::string HoldUndoFolder(FileCalls& calls, const std::string& tempFolder);

/// Keeps other running editors out of a folder until the program ends; false when one of them
/// has it already.
bool HoldFolder(const std::string& folder);

}  // namespace vesmora
