// Finding objects by place: boxes, clicks and a scenery's handles.
#pragma once

#include "tools/editing.h"

namespace vesmora {

enum class SelectionKind { kAll = 0, kFirstVertex = 1, kFirstWaypoint = 5 };

/// Left to right and top to bottom. An edge that changes sides is rounded to a
/// whole unit on its way; deliberately only that one.
SelectionBox Normalised(SelectionBox box);

/// Rebuilds the selection from what is shown inside a box, edges included. When
/// nothing is found, nobody holds the button and `keep` is off, the selection's
/// own box becomes unset.
void SelectInBox(const Editing& editing, const SelectionBox& box, bool keep, SelectionKind kind);

/// A click without a drag: squares grow about the box's point until one holds
/// anything, and everything in that one is selected.
void PickAtPoint(const Editing& editing);

/// Half the side of the square in which an Add tool finds what is under the
/// pointer, in world units.
float HoverReach(const ViewTransform& view);

enum class SceneryHandle { kRotate = 0, kSize = 1 };

/// Whether a point, in whole world units, lies on a handle of a scenery.
bool HandleHitTest(SceneryHandle handle, const SceneryObject& scenery, std::int16_t x,
                   std::int16_t y);

}  // namespace vesmora
