// Objects for test maps: each function fills the next slot and returns its record.
#pragma once

#include <array>
#include <vector>

#include "document/map_document.h"
#include "document/selection.h"
#include "view/canvas.h"

namespace vesmora {

/// Corners in world units; solid edges.
Polygon& AddTriangle(MapDocument& document, const std::array<ScreenPoint, 3>& corners);
SpawnPoint& AddSpawn(MapDocument& document, float x, float y, std::uint8_t team);
SceneryObject& AddScenery(MapDocument& document, float x, float y, std::uint8_t type);
Collider& AddCollider(MapDocument& document, float x, float y, float size);
/// `connections` are ids: slot + 1.
Waypoint& AddWaypoint(MapDocument& document, float x, float y, std::int32_t path,
                      const std::vector<std::int32_t>& connections = {});

/// Lists every object of the map and sets the box.
void SelectEverything(Selection& selection, const MapDocument& document);

}  // namespace vesmora
