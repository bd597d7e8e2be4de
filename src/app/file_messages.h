// What happened to a map's file, told to the user.
#pragma once

#include <string>

#include "document/map_file.h"
#include "tools/editing.h"

namespace vesmora {

void TellLoadReport(Editing& editing, const std::string& path, const LoadReport& report);

/// Why a file, map or prefab, could not be saved; nothing on success.
void TellSaveStatus(Editing& editing, const std::string& path, const FileStatus& status);

/// What the game would misread in a map that was saved.
void TellSaveFindings(Editing& editing, const SaveFindings& findings);

}  // namespace vesmora
