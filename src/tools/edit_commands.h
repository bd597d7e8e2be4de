// The Edit menu's commands on the selection.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// Copies what is selected, a polygon with any of its corners, as far as the map
/// has room for it.
void MenuCopy(Editing& editing);

/// Adds what was copied, as far as it fits, selects it and puts it in the middle of
/// the view.
void MenuPaste(Editing& editing);

/// In Edit deletes what is selected, a polygon with any of its corners; in an Add
/// tool takes back the last object of its kind. Its undo step comes before any test.
void MenuDelete(Editing& editing);

/// Selects all that is shown, with its bounds for the box.
void MenuSelectAll(Editing& editing);

/// About the middle of the selection's box.
void MenuMirror(Editing& editing);
void MenuFlip(Editing& editing);

/// Polygons and sceneries to the end of their tables in their order, or to the
/// start in reverse order.
void MenuFront(Editing& editing);
void MenuBack(Editing& editing);

}  // namespace vesmora
