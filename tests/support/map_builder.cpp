#include "support/map_builder.h"

#include "document/numbers.h"
#include "document/scenery_types.h"

namespace vesmora {
namespace {

template <typename Table>
auto& Next(Table& table, std::int16_t& last) {
  return table.at(static_cast<std::size_t>(++last));
}

}  // namespace

Polygon& AddTriangle(MapDocument& document, const std::array<ScreenPoint, 3>& corners) {
  Polygon& polygon = Next(document.polygons, document.lastPolygon);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    polygon.vertices[i].x = corners[i].x;
    polygon.vertices[i].y = corners[i].y;
  }
  document.normals[static_cast<std::size_t>(document.lastPolygon)].edges.fill({1, 1, 1});
  return polygon;
}

SpawnPoint& AddSpawn(MapDocument& document, float x, float y, std::uint8_t team) {
  SpawnPoint& spawn = Next(document.spawns, document.lastSpawn);
  spawn = {1, ToFixedPoint(x), ToFixedPoint(y), 0, team, {}};
  return spawn;
}

SceneryObject& AddScenery(MapDocument& document, float x, float y, std::uint8_t type) {
  SceneryObject& scenery = Next(document.sceneries, document.lastScenery);
  const SceneryType& row = SceneryTypeOf(type);
  scenery = {1, type, {}, row.width, row.height, x, y, 0, 1, 1, 255, {}};
  return scenery;
}

Collider& AddCollider(MapDocument& document, float x, float y, float size) {
  Collider& collider = Next(document.colliders, document.lastCollider);
  collider.active = 1;
  collider.x = x;
  collider.y = y;
  collider.radius = size;
  return collider;
}

Waypoint& AddWaypoint(MapDocument& document, float x, float y, std::int32_t path,
                      const std::vector<std::int32_t>& connections) {
  Waypoint& waypoint = Next(document.waypoints, document.lastWaypoint);
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

void SelectEverything(Selection& selection, const MapDocument& document) {
  ClearLists(selection);
  for (std::int16_t i = 0; i <= document.lastPolygon; ++i) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) selection.vertices.Add({i, corner});
  }
  const auto fill = [](auto& list, std::int16_t last) {
    for (int i = 0; i <= last; ++i) {
      list.Add(static_cast<std::remove_cvref_t<decltype(list.entries[0])>>(i));
    }
  };
  fill(selection.spawns, document.lastSpawn);
  fill(selection.sceneries, document.lastScenery);
  fill(selection.colliders, document.lastCollider);
  fill(selection.waypoints, document.lastWaypoint);
  UpdateSelectionBox(selection, document);
}

}  // namespace vesmora
