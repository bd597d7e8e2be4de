// Angles and normals as the map format wants them: in single precision, with
// zero components nudged to 1e-14 so that no direction is degenerate.
#pragma once

#include "document/records.h"
#include "document/world_point.h"

namespace vesmora {

inline constexpr float kPi = 3.1415927f;

/// Direction of (dx, dy) in radians, in (-pi, pi].
float VectorAngle(float dx, float dy);

/// Unit normal of an edge whose start minus end is (a, b). Never has an exact
/// zero component: that would mark the edge passable.
WorldPoint EdgeNormal(float a, float b);

/// True when the polygon's corners run in the order the game wants.
bool PolygonIsOrdered(const Polygon& polygon);

/// Twice the area, with the sign of the corners' order.
double DoubleArea(const Polygon& polygon);

/// Of a polygon that has an area: whether a save turns its corners.
bool RunsTheWrongWay(const Polygon& polygon);

/// Recomputes x and y of a polygon's three normals from its corners; z stays.
void RecomputeNormals(Polygon& polygon);

/// Players pass a passable edge.
inline bool IsPassable(const Normal& normal) { return normal.x == 0 && normal.y == 0; }

/// A passable polygon is kept out of the normals' recomputation and the sector grid. Only the
/// normals' y counts for it.
bool IsPassablePolygon(const Polygon& polygon);

}  // namespace vesmora
