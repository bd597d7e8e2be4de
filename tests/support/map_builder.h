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

// Objects that carry their numbers where no command looks.

/// Numbers 0 to `count` - 1 of each kind, each 20 units to the right of the one before.
inline void AddNumbered(MapDocument& map, std::uint8_t count) {
  for (std::uint8_t i = 0; i < count; ++i) {
    const float x = 20.0f * i;
    Polygon& polygon = AddTriangle(map, {{{x, 0}, {x + 10, 0}, {x, 10}}});
    for (PolygonVertex& vertex : polygon.vertices) vertex.color = {i, i, i, 255};
    polygon.edges.fill({1, 1, static_cast<float>(i)});
    AddSpawn(map, x, 20, 2).carried = {i, i};
    AddScenery(map, x + 0.5f, 30.5f, 3).carriedTail = {i};
    AddCollider(map, x, 40, 8).carried = {i, i};
    AddWaypoint(map, x, 50, 1).carried = {i, i, i};
  }
}

/// In their order: polygons, their edges, spawns, sceneries, colliders, waypoints.
inline std::vector<std::string> NumbersIn(const MapDocument& map) {
  const auto numbers = [](const auto& table, auto numberOf) {
    std::string text;
    for (const auto& record : table.Used()) {
      text += std::to_string(static_cast<int>(numberOf(record)));
    }
    return text;
  };
  const auto carried = [](const auto& record) { return record.carried[0]; };
  return {numbers(map.polygons, [](auto& p) { return p.vertices[1].color.red; }),
          numbers(map.polygons, [](auto& p) { return p.edges[1].z; }),
          numbers(map.spawns, carried),
          numbers(map.sceneries, [](auto& s) { return s.carriedTail[0]; }),
          numbers(map.colliders, carried),
          numbers(map.waypoints, carried)};
}

inline void ListSlots(Selection& selection, const std::vector<std::uint8_t>& slots) {
  for (const std::uint8_t slot : slots) {
    selection.spawns.Append(slot);
    selection.sceneries.Append(slot);
    selection.colliders.Append(slot);
    selection.waypoints.Append(slot);
  }
}

inline void ListVertices(Selection& selection, const std::vector<VertexReference>& vertices) {
  for (const VertexReference vertex : vertices) selection.vertices.Append(vertex);
}

inline std::vector<std::int32_t> LinksOf(const MapDocument& map, int slot) {
  const Waypoint& waypoint = map.waypoints[slot];
  return {waypoint.connections.begin(), waypoint.connections.begin() + waypoint.connectionCount};
}

}  // namespace vesmora
