// Objects for test maps: each function fills the next slot and returns its record.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "document/map_document.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "document/selection.h"
#include "view/canvas.h"

namespace vesmora {

/// Corners in world units; solid edges.
inline Polygon& AddTriangle(MapDocument& document, const std::array<ScreenPoint, 3>& corners) {
  Polygon& polygon = document.polygons.TakeSlot();
  for (std::size_t i = 0; i < corners.size(); ++i) {
    polygon.vertices[i].x = corners[i].x;
    polygon.vertices[i].y = corners[i].y;
  }
  polygon.edges.fill({1, 1, 1});
  return polygon;
}

inline SpawnPoint& AddSpawn(MapDocument& document, float x, float y, std::uint8_t team) {
  return document.spawns.TakeSlot() = {1, ToFixedPoint(x), ToFixedPoint(y), 0, team, {}};
}

inline SceneryObject& AddScenery(MapDocument& document, float x, float y, std::uint8_t type) {
  const SceneryType& row = SceneryTypeOf(type);
  return document.sceneries.TakeSlot() = {1, type, {}, row.width, row.height, x,
                                          y, 0,    1,  1,         255,        {}};
}

inline Collider& AddCollider(MapDocument& document, float x, float y, float size) {
  Collider& collider = document.colliders.TakeSlot();
  const std::uint8_t letter = collider.authorChar;  // the map's
  return collider = {1, {}, letter, x, y, size};
}

/// `connections` are ids: slot + 1.
inline Waypoint& AddWaypoint(MapDocument& document, float x, float y, std::int32_t path,
                             const std::vector<std::int32_t>& connections = {}) {
  Waypoint& waypoint = document.waypoints.TakeSlot();
  waypoint.active = 1;
  waypoint.id = document.waypoints.last + 1;
  waypoint.x = ToFixedPoint(x);
  waypoint.y = ToFixedPoint(y);
  waypoint.path = path;
  for (const std::int32_t id : connections) {
    waypoint.connections.at(static_cast<std::size_t>(waypoint.connectionCount++)) = id;
  }
  return waypoint;
}

/// Lists every object of the map and sets the box.
inline void SelectEverything(Selection& selection, const MapDocument& document) {
  ClearLists(selection);
  VisitLists(document, selection, [](const auto& table, auto& list) { ListFrom(0, table, list); });
  UpdateSelectionBox(selection, document);
}

}  // namespace vesmora
