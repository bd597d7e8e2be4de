// Mouse events on the map, handed to whatever they are for: panning in every tool,
// else the active tool.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

void PressMouse(const Editing& editing, const MouseInput& input);
void MoveMouse(const Editing& editing, const MouseInput& input);
void ReleaseMouse(const Editing& editing, const MouseInput& input);

/// What the pointer was over is elsewhere now, or the pointer has left the map.
void ForgetHover(const Editing& editing);

/// Escape: ends what is in progress and leaves the map as it was before.
void CancelGesture(const Editing& editing);

}  // namespace vesmora
