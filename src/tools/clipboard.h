// Copied objects. They also lie in the free tail of the map's own tables, as the
// undo files of this map generation carry them, but what Paste takes are the copies
// kept here: saving, undoing or creating objects meanwhile cannot spoil them.
#pragma once

#include <array>
#include <cstdint>

#include "document/edited_map.h"

namespace vesmora {

/// Tables are in the order in which the objects were selected.
struct Clipboard {
  Table<Polygon, kPolygonCapacity> polygons;
  Table<SpawnPoint, kSpawnCapacity> spawns;
  Table<SceneryObject, kSceneryCapacity> sceneries;
  Table<Collider, kColliderCapacity> colliders;
  Table<Waypoint, kWaypointCapacity> waypoints;
  WaypointKeys waypointKeys{};  // parallel to `waypoints`
  /// The keys of the waypoints that each one's connections led to; 0: to none.
  std::array<std::array<std::int32_t, kConnectionCapacity>, kWaypointCapacity> targetKeys{};
  SelectionBox box;       // that the objects had when they were copied
  bool overflow = false;  // not everything fitted, and nobody has been told

  /// Forgets the copies. A pending report of an overflow goes with them.
  void Clear() {
    VisitTables(*this, [](auto& table) { table.Clear(); });
    overflow = false;
  }
  int Count() const {
    return polygons.Count() + spawns.Count() + sceneries.Count() + colliders.Count() +
           waypoints.Count();
  }
  bool Empty() const { return Count() == 0; }
};

}  // namespace vesmora
