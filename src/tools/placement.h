// A placement: the selection follows the pointer until a press drops it.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

/// Centres the selection in the view and lets it follow the pointer from there.
void BeginPlacement(Editing& editing);

/// Carries the selection along, the middle of its box under the pointer.
void CarryAlong(Editing& editing, const MouseInput& input);

}  // namespace vesmora
