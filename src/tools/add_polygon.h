// The Add polygon tool: a triangle in three clicks.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressInAddPolygon(const Editing& editing, const MouseInput& input);
void MoveInAddPolygon(const Editing& editing, const MouseInput& input);

}  // namespace vesmora
