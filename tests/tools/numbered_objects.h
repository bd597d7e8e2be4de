// Maps whose objects carry their numbers where no command looks.
#pragma once

#include <string>
#include <vector>

#include "support/map_builder.h"

namespace vesmora {

/// Numbers 0 to `count` - 1 of each kind, each 20 units to the right of the one before.
inline void AddNumbered(MapDocument& map, std::uint8_t count) {
  for (std::uint8_t i = 0; i < count; ++i) {
    const float x = 20.0f * i;
    for (PolygonVertex& vertex : AddTriangle(map, {{{x, 0}, {x + 10, 0}, {x, 10}}}).vertices) {
      vertex.color = {i, i, i, 255};
    }
    map.normals[static_cast<std::size_t>(map.lastPolygon)].edges.fill(
        {1, 1, static_cast<float>(i)});
    AddSpawn(map, x, 20, 2).carried = {i, i};
    AddScenery(map, x + 0.5f, 30.5f, 3).carriedTail = {i};
    AddCollider(map, x, 40, 8).carried = {i, i};
    AddWaypoint(map, x, 50, 1).carried = {i, i, i};
  }
}

/// In their order: polygons, normals, spawns, sceneries, colliders, waypoints.
inline std::vector<std::string> NumbersIn(const MapDocument& map) {
  const auto numbers = [](const auto& table, int last, auto numberOf) {
    std::string text;
    for (std::size_t i = 0; i < static_cast<std::size_t>(last + 1); ++i) {
      text += std::to_string(static_cast<int>(numberOf(table[i])));
    }
    return text;
  };
  const auto carried = [](const auto& record) { return record.carried[0]; };
  return {numbers(map.polygons, map.lastPolygon, [](auto& p) { return p.vertices[1].color.red; }),
          numbers(map.normals, map.lastPolygon, [](auto& n) { return n.edges[1].z; }),
          numbers(map.spawns, map.lastSpawn, carried),
          numbers(map.sceneries, map.lastScenery, [](auto& s) { return s.carriedTail[0]; }),
          numbers(map.colliders, map.lastCollider, carried),
          numbers(map.waypoints, map.lastWaypoint, carried)};
}

inline void ListSlots(Selection& selection, const std::vector<std::uint8_t>& slots) {
  for (const std::uint8_t slot : slots) {
    selection.spawns.Add(slot);
    selection.sceneries.Add(slot);
    selection.colliders.Add(slot);
    selection.waypoints.Add(slot);
  }
}

inline void ListVertices(Selection& selection, const std::vector<VertexReference>& vertices) {
  for (const VertexReference vertex : vertices) selection.vertices.Add(vertex);
}

inline std::vector<std::int32_t> LinksOf(const MapDocument& map, int slot) {
  const Waypoint& waypoint = map.waypoints[static_cast<std::size_t>(slot)];
  return {waypoint.connections.begin(), waypoint.connections.begin() + waypoint.connectionCount};
}

}  // namespace vesmora
