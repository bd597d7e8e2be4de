// Copied objects. They also lie in the free tail of the map's own tables, as the
// undo files of this map generation carry them, but what Paste takes are the copies
// kept here: saving, undoing or creating objects meanwhile cannot spoil them.
#pragma once

#include <array>
#include <cstdint>

#include "document/map_document.h"
#include "document/selection.h"
#include "document/undo_journal.h"

namespace vesmora {

/// Records 0..last, in the order in which they were selected.
template <typename Record, int kCapacity>
struct CopiedRecords {
  std::array<Record, static_cast<std::size_t>(kCapacity)> records{};
  std::int16_t last = -1;

  int Count() const { return last + 1; }
};

struct Clipboard {
  CopiedRecords<Polygon, kPolygonCapacity> polygons;
  std::array<PolygonNormals, kPolygonCapacity> normals{};  // parallel to `polygons`
  CopiedRecords<SpawnPoint, kSpawnCapacity> spawns;
  CopiedRecords<SceneryObject, kSceneryCapacity> sceneries;
  CopiedRecords<Collider, kColliderCapacity> colliders;
  CopiedRecords<Waypoint, kWaypointCapacity> waypoints;
  WaypointKeys waypointKeys{};  // parallel to `waypoints`
  /// The keys of the waypoints that each one's connections led to; 0: to none.
  std::array<std::array<std::int32_t, kConnectionCapacity>, kWaypointCapacity> targetKeys{};
  SelectionBox box;       // that the objects had when they were copied
  bool overflow = false;  // not everything fitted, and nobody has been told

  /// Records of all kinds minus one: -1 when there is nothing to paste.
  std::int16_t TotalCounter() const;
  bool Empty() const { return TotalCounter() < 0; }
};

/// Forgets the copies. A pending report of an overflow goes with them.
void ClearClipboard(Clipboard& clipboard);

}  // namespace vesmora
