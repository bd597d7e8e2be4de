// Where temporary files go.
#pragma once

#include <string>

#include "platform/files.h"

namespace vesmora {

/// A folder of this user's own for temporary files, with a trailing slash; empty when
/// there is none, and then `status` says why. Where users share the system's temporary
/// folder it is one inside that only this user can enter; whatever another user put under
/// its name is left alone and a fresh name taken.
[[nodiscard]] std::string PrivateTempFolder(FileCalls& calls, FileStatus& status);

/// The folder for this running program's undo files, ending with the same slash as
/// `tempFolder`: that one itself or, while other running editors hold it, a folder inside it
/// of its own. Held until the program ends, however it ends; empty when there is none.
[[nodiscard]] std::string HoldUndoFolder(FileCalls& calls, const std::string& tempFolder);

/// Keeps other running editors out of a folder, named with a trailing slash, until the program
/// ends; false when one of them has it already, or when it cannot be opened.
bool HoldFolder(const std::string& folder);

}  // namespace vesmora
