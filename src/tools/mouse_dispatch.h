// Mouse events on the map, handed to whatever they are for: panning in every tool,
// else the active tool.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressMouse(Editing& editing, const MouseInput& input);
void MoveMouse(Editing& editing, const MouseInput& input);
void ReleaseMouse(Editing& editing, const MouseInput& input);

/// What the pointer was over is elsewhere now, or the pointer has left the map.
void ForgetHover(Editing& editing);

/// Escape: ends what is in progress and leaves the map as it was before. With nothing in
/// progress it deselects in Edit, as a click beside the selection does.
void CancelGesture(Editing& editing);

}  // namespace vesmora
