// Points of the world, and where each kind of object lies.
#pragma once

#include "document/numbers.h"
#include "document/records.h"

namespace vesmora {

/// World units, x to the right and y downwards: a place, or the way from one to another.
struct WorldPoint {
  float x = 0;
  float y = 0;

  bool operator==(const WorldPoint&) const = default;
};

/// The stored place of a scenery is this much to the right of and below where it is drawn.
inline constexpr float kSceneryOffset = 0.5f;

inline WorldPoint PlaceOf(const PolygonVertex& vertex) { return {vertex.x, vertex.y}; }
/// Its first corner's.
inline WorldPoint PlaceOf(const Polygon& polygon) { return PlaceOf(polygon.vertices[0]); }
inline WorldPoint PlaceOf(const SpawnPoint& spawn) {
  return {FromFixedPoint(spawn.x), FromFixedPoint(spawn.y)};
}
inline WorldPoint PlaceOf(const SceneryObject& scenery) {
  return {scenery.x - kSceneryOffset, scenery.y - kSceneryOffset};
}
inline WorldPoint PlaceOf(const Collider& collider) { return {collider.x, collider.y}; }
inline WorldPoint PlaceOf(const Waypoint& waypoint) {
  return {FromFixedPoint(waypoint.x), FromFixedPoint(waypoint.y)};
}

}  // namespace vesmora
