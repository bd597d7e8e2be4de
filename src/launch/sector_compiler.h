// The sector grid: which polygons the game looks at in which part of the map.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// Polygons that are missing in at least one sector they belong to.
struct SectorShortage {
  int outside = 0;  // they reach out of the grid
  int crowded = 0;  // a sector holds all it can
};

/// Enters the polygons in the sectors that their bounding boxes touch, for the division
/// that the document has. Passable ones belong nowhere.
SectorShortage FillSectors(MapDocument& document);

/// Centres the map, chooses the sector division and fills the grid, as one undo step
/// "Move". Objects that lie beyond the polygons stay where they are. False, with the user
/// told and the map as it was, when there is nothing to divide.
bool CompileSectors(Editing& editing);

}  // namespace vesmora
