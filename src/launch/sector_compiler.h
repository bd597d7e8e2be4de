// Compile: the map in the middle of its world, and the sector grid filled anew.
#pragma once

#include <string>

#include "document/sector_grid.h"
#include "tools/editing.h"

namespace vesmora {

/// Words for the user; empty when there is something to divide.
std::string WhyNotCompiled(const MapDocument& document);

/// Centres the map and chooses the sector division. Objects that lie beyond the polygons stay where
/// they are. Only of a map that can be compiled. `keepsTexture` as for ShiftSelected.
void DivideMap(MapDocument& document, bool keepsTexture);

/// The same, and fills the grid.
SectorShortage CompileMap(MapDocument& document, bool keepsTexture);

/// The same as one undo step "Move". False, with the user told and the map as it was, when there
/// is nothing to divide.
bool CompileSectors(Editing& editing);

}  // namespace vesmora
