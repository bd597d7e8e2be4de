// Angles and normals as the map format wants them: in single precision, with
// zero components nudged to 1e-14 so that no direction is degenerate.
#pragma once

#include "document/map_document.h"

namespace vesmora {

inline constexpr float kPi = 3.1415927f;

/// Direction of (dx, dy) in radians, in (-pi, pi].
float VectorAngle(float dx, float dy);

struct EdgeDirection {
  float x;
  float y;
};

/// Unit normal of an edge whose start minus end is (a, b). Never has an exact
/// zero component: that would mark the edge passable.
EdgeDirection EdgeNormal(float a, float b);

/// True when the polygon's corners run in the order the game wants.
bool PolygonIsOrdered(const MapDocument& document, int polygon);

/// Recomputes x and y of a polygon's three normals from its corners; z stays.
void RecomputeNormals(MapDocument& document, int polygon);

}  // namespace vesmora
