// A placement: the selection follows the pointer until a click drops it.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

/// Centres the selection in the view and lets it follow the pointer from there.
void BeginPlacement(const Editing& editing);

/// Carries the selection along, the middle of its box under the pointer.
void FollowPointer(const Editing& editing, const MouseInput& input);

void EndPlacement(EditingState& state);

}  // namespace vesmora
