// Choosing a tool.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// Drops a polygon whose third corner has not been placed.
void EndConstruction(EditingState& state);

/// The scenery whose direction is pending; none when a save has dropped its slot.
SceneryObject* PendingScenery(EditingState& state);

/// Lets a liana whose direction click never came hang down.
void EndPendingDirection(EditingState& state);

/// True while corners of a polygon are placed but not all.
bool IsConstructing(const EditingState& state);

/// Makes `mode` the active tool. The Add tools show the kind they add, start with
/// nothing selected and offer the last object's properties for the next one; Edit
/// keeps the selection.
void ChangeTool(const Editing& editing, ToolMode mode);

}  // namespace vesmora
