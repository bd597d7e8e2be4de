// The Edit tool under the mouse: handles, dragging, the rubber band and the click.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressInEdit(const Editing& editing, const MouseInput& input);
void MoveInEdit(const Editing& editing, const MouseInput& input);
void ReleaseInEdit(const Editing& editing);

}  // namespace vesmora
