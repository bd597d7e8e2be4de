// How findings about a map and differences between maps name what they are about.
#pragma once

#include <string>
#include <string_view>

#include "document/world_point.h"

namespace vesmora {

enum class ObjectKind { kMap, kPolygon, kSpawn, kScenery, kCollider, kWaypoint, kSector };

/// The kind's name as people and programs read it: "polygon".
std::string_view NameOf(ObjectKind kind);

struct ObjectReference {
  ObjectKind kind = ObjectKind::kMap;
  int slot = -1;    // of a sector its place in the grid's table; -1 for the map itself
  int corner = -1;  // of a polygon, 0..2; -1 for all of it

  bool operator==(const ObjectReference&) const = default;
};

/// Counted from 1 as people count: "polygon 12, corner 2", "map". Sectors go by column and row,
/// from 0: "sector 3,4".
std::string Describe(const ObjectReference& object);

/// "10.5,-20"
std::string PlaceText(WorldPoint place);

}  // namespace vesmora
