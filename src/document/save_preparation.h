// What a real save derives before the bytes are written, and nobody edits by hand.
#pragma once

#include "document/map_document.h"
#include "document/selection.h"

namespace vesmora {

/// Gives every polygon the same corner order by swapping corners 0 and 1 where
/// needed: position, colour without alpha, and texture; z, rhw and alpha stay.
void KorjaaSuunnat(MapDocument& document);

/// Moves every spawn point to whole world units and sets its sign byte.
void SnapSpawns(MapDocument& document);

/// All of a real save's preparation, in its fixed order: corner order, normals
/// of polygons that are not passable, zeroed unused slots, snapped spawns. What is
/// selected stays selected.
void PrepareForSave(MapDocument& document, Selection& selection);

}  // namespace vesmora
