// How the texture lies on the map: world-aligned, by fixed divisors.
#pragma once

#include "document/records.h"
#include "document/world_point.h"

namespace vesmora {

inline constexpr float kTextureWidth = 160;  // world units of one repeat
inline constexpr float kTextureHeight = 120;

/// A corner whose texture was deleted has a zero in either coordinate.
inline bool HasTexture(const PolygonVertex& corner) { return corner.u != 0 && corner.v != 0; }

/// Gives a corner the coordinates that a world place has.
inline void MapTexture(PolygonVertex& corner, WorldPoint place) {
  corner.u = place.x / kTextureWidth;
  corner.v = place.y / kTextureHeight;
}

/// Lets the texture stay where it is on the map while its corner moves by `offset`.
inline void MoveTexture(PolygonVertex& corner, WorldPoint offset) {
  if (!HasTexture(corner)) return;
  corner.u += offset.x / kTextureWidth;
  corner.v += offset.y / kTextureHeight;
}

}  // namespace vesmora
