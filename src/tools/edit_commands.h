// The Edit menu's commands on the selection.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// In Edit deletes what is selected, a polygon with any of its corners; in an Add
/// tool takes back the last object of its kind. Its undo step comes before any test.
void MenuDelete(const Editing& editing);

/// About the middle of the selection's box.
void MenuMirror(const Editing& editing);
void MenuFlip(const Editing& editing);

/// Polygons and sceneries to the end of their tables in their order, or to the
/// start in reverse order.
void MenuFront(const Editing& editing);
void MenuBack(const Editing& editing);

}  // namespace vesmora
