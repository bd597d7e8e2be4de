// How the texture lies on the map: world-aligned, by fixed divisors.
#pragma once

#include "document/records.h"

namespace vesmora {

inline constexpr float kTextureWidth = 160;  // world units of one repeat
inline constexpr float kTextureHeight = 120;

/// A corner whose texture was deleted has a zero in either coordinate.
inline bool HasTexture(const PolygonVertex& corner) { return corner.u != 0 && corner.v != 0; }

/// Gives a corner the coordinates that a world place has.
inline void MapToPlace(PolygonVertex& corner, float x, float y) {
  corner.u = x / kTextureWidth;
  corner.v = y / kTextureHeight;
}

inline void MapToWorld(PolygonVertex& corner) { MapToPlace(corner, corner.x, corner.y); }

/// Moves a corner while its texture stays where it is on the map.
inline void MoveCorner(PolygonVertex& corner, float dx, float dy) {
  corner.x += dx;
  corner.y += dy;
  if (!HasTexture(corner)) return;
  corner.u += dx / kTextureWidth;
  corner.v += dy / kTextureHeight;
}

}  // namespace vesmora
