// Finding objects by place: boxes, clicks and a scenery's handles.
#pragma once

#include <cstdint>

#include "document/map_document.h"
#include "document/selection.h"
#include "tools/editing.h"
#include "view/show_options.h"
#include "view/view_transform.h"

namespace vesmora {

enum class SelectionKind { kAll = 0, kFirstVertex = 1, kFirstWaypoint = 5 };

/// Lists what lies in a box, edges included, of the kinds that are shown. Leaves the box
/// and all else of `selection` alone.
void ListInBox(const MapDocument& document, const ShowOptions& show, const SelectionBox& box,
               SelectionKind kind, Selection& selection);

/// Lists all that is shown, wherever it lies.
void ListAllShown(const MapDocument& document, const ShowOptions& show, Selection& selection);

/// Rebuilds the selection from what is shown inside a box, but for a triangle without its third
/// corner. When nothing is found, nobody holds the button and `keep` is off, the selection's
/// own box becomes unset.
void SelectInBox(Editing& editing, const SelectionBox& box, bool keep, SelectionKind kind);

/// A click without a drag: squares grow about the box's point until one holds
/// anything, and everything in that one is selected.
void PickAtPoint(Editing& editing);

/// Half the side of the square in which an Add tool finds what is under the
/// pointer, in world units.
float HoverReach(const ViewTransform& view);

/// That square about a point.
SelectionBox HoverBox(const ViewTransform& view, WorldPoint center);

enum class SceneryHandle { kRotate = 0, kSize = 1 };

/// Whether a point, in whole world units, lies on a handle of a scenery.
bool HandleHitTest(SceneryHandle handle, const SceneryObject& scenery, std::int16_t x,
                   std::int16_t y);

}  // namespace vesmora
