// The Add waypoint tool: places waypoints and connects them one way.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressInAddWaypoint(const Editing& editing, const MouseInput& input);
void MoveInAddWaypoint(const Editing& editing, const MouseInput& input);

}  // namespace vesmora
