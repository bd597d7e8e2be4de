// Shifting everything that is selected.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// Moves the selection and its box by world units. The first move of a selection
/// takes the snapshot "Move"; neither redraws nor refreshes the panel.
void MoveSelection(const Editing& editing, float dx, float dy);

/// Moves the selection so that its box lies in the middle of the drawing area.
void CenterSelection(const Editing& editing);

}  // namespace vesmora
