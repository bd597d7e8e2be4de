// Choosing a tool, and what it offers for the next object.
#pragma once

#include <string>

#include "tools/editing.h"

namespace vesmora {

/// Makes `mode` the active tool. The Add tools show the kind they add, start with
/// nothing selected and offer the last object's properties for the next one; Edit
/// keeps the selection.
void ChangeTool(Editing& editing, ToolMode mode);

/// The same as a person's choice: an Add tool also empties the clipboard.
void ChooseTool(Editing& editing, ToolMode mode);

/// The visibility that the next scenery gets, as a percentage: as chosen or typed, else the
/// last scenery's.
std::string NextVisibility(const Editing& editing);

/// The path that waypoints are added to may not be hidden: such a choice becomes "Both".
void ShowPathBeingAdded(Editing& editing);

}  // namespace vesmora
