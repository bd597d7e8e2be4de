// What each tool does with the mouse. The Add tools for spawn points, sceneries and colliders
// keep a preview of what a press would add in the first slot behind their tables.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

// Handles, dragging, the rubber band and the click.
void PressInEdit(Editing& editing, const MouseInput& input);
void MoveInEdit(Editing& editing, const MouseInput& input);
void ReleaseInEdit(Editing& editing);

// A triangle in three clicks.
void PressInAddPolygon(Editing& editing, const MouseInput& input);
void MoveInAddPolygon(Editing& editing, const MouseInput& input);

void PressInAddSpawn(Editing& editing, const MouseInput& input);
void MoveInAddSpawn(Editing& editing, const MouseInput& input);

void PressInAddScenery(Editing& editing, const MouseInput& input);
void MoveInAddScenery(Editing& editing, const MouseInput& input);

void PressInAddCollider(Editing& editing, const MouseInput& input);
void MoveInAddCollider(Editing& editing, const MouseInput& input);

// Places waypoints and connects them one way.
void PressInAddWaypoint(Editing& editing, const MouseInput& input);
void MoveInAddWaypoint(Editing& editing, const MouseInput& input);

}  // namespace vesmora
