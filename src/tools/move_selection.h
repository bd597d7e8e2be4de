// Shifting what is selected.
#pragma once

#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

/// Shifts what is listed, and the box as far as it is set. `keepsTexture`: corners keep their
/// texture coordinates instead of the texture its place on the map.
void ShiftSelected(MapDocument& document, Selection& selection, WorldPoint offset,
                   bool keepsTexture);

/// Moves the selection and its box by world units. The first move of a selection
/// takes the snapshot "Move"; neither redraws nor refreshes the panel.
void MoveSelection(Editing& editing, WorldPoint offset);

/// Moves the selection so that its box lies in the middle of the drawing area.
void CenterSelection(Editing& editing);

/// Centres the selection in the view and lets it follow the pointer from there, until a press
/// drops it.
void BeginPlacement(Editing& editing);

/// Carries the selection along, the middle of its box under the pointer.
void CarryAlong(Editing& editing, const MouseInput& input);

}  // namespace vesmora
