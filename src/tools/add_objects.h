// The Add tools for spawn points, sceneries and colliders. Each keeps a preview of
// what a press would add in the first slot behind its table.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressInAddSpawn(const Editing& editing, const MouseInput& input);
void MoveInAddSpawn(const Editing& editing, const MouseInput& input);

void PressInAddScenery(const Editing& editing, const MouseInput& input);
void MoveInAddScenery(const Editing& editing, const MouseInput& input);

void PressInAddCollider(const Editing& editing, const MouseInput& input);
void MoveInAddCollider(const Editing& editing, const MouseInput& input);

}  // namespace vesmora
