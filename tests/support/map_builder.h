// Objects for test maps: each function fills the next slot and returns its record.
#pragma once

#include <array>
#include <vector>

#include "document/map_document.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "document/selection.h"
#include "view/canvas.h"

namespace vesmora {

template <typename Table>
auto& NextSlot(Table& table, std::int16_t& last) {
  return table.at(static_cast<std::size_t>(++last));
}

/// Corners in world units; solid edges.
inline Polygon& AddTriangle(MapDocument& document, const std::array<ScreenPoint, 3>& corners) {
  Polygon& polygon = NextSlot(document.polygons, document.lastPolygon);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    polygon.vertices[i].x = corners[i].x;
    polygon.vertices[i].y = corners[i].y;
  }
  document.normals[static_cast<std::size_t>(document.lastPolygon)].edges.fill({1, 1, 1});
  return polygon;
}

inline SpawnPoint& AddSpawn(MapDocument& document, float x, float y, std::uint8_t team) {
  return NextSlot(document.spawns, document.lastSpawn) = {
             1, ToFixedPoint(x), ToFixedPoint(y), 0, team, {}};
}

inline SceneryObject& AddScenery(MapDocument& document, float x, float y, std::uint8_t type) {
  const SceneryType& row = SceneryTypeOf(type);
  return NextSlot(document.sceneries, document.lastScenery) = {
             1, type, {}, row.width, row.height, x, y, 0, 1, 1, 255, {}};
}

inline Collider& AddCollider(MapDocument& document, float x, float y, float size) {
  Collider& collider = NextSlot(document.colliders, document.lastCollider);
  const std::uint8_t letter = collider.authorChar;  // the map's
  return collider = {1, {}, letter, x, y, size};
}

/// `connections` are ids: slot + 1.
inline Waypoint& AddWaypoint(MapDocument& document, float x, float y, std::int32_t path,
                             const std::vector<std::int32_t>& connections = {}) {
  Waypoint& waypoint = NextSlot(document.waypoints, document.lastWaypoint);
  waypoint.active = 1;
  waypoint.id = document.lastWaypoint + 1;
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
  for (std::int16_t i = 0; i <= document.lastPolygon; ++i) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) selection.vertices.Add({i, corner});
  }
  const auto fill = [](auto& list, std::int16_t last) {
    using Entry = std::remove_cvref_t<decltype(list.entries[0])>;
    for (int i = 0; i <= last; ++i) list.Add(static_cast<Entry>(i));
  };
  fill(selection.spawns, document.lastSpawn);
  fill(selection.sceneries, document.lastScenery);
  fill(selection.colliders, document.lastCollider);
  fill(selection.waypoints, document.lastWaypoint);
  UpdateSelectionBox(selection, document);
}

}  // namespace vesmora
