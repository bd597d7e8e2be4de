#include "document/geometry.h"

#include <algorithm>
#include <cmath>

namespace vesmora {
namespace {

constexpr double kAlmostZero = 1e-14;

double NonZero(double value) { return value == 0 ? kAlmostZero : value; }

float StoredComponent(double value) {
  return static_cast<float>(NonZero(static_cast<float>(value)));
}

}  // namespace

float VectorAngle(float dx, float dy) {
  const double x = NonZero(dx);
  const double y = NonZero(dy);
  const auto angle = static_cast<float>(std::atan(y / x));
  if (x >= 0) return angle;
  return y < 0 ? angle - kPi : angle + kPi;
}

WorldPoint EdgeNormal(float a, float b) {
  // Stored in single precision, but worked out in double: the last bit matters.
  const double dx = NonZero(a);
  const double dy = NonZero(b);
  const double length = std::sqrt(dx * dx + dy * dy);
  return {StoredComponent(dy / length), StoredComponent(-(dx / length))};
}

bool PolygonIsOrdered(const Polygon& polygon) {
  const auto& corners = polygon.vertices;
  const float second = VectorAngle(corners[2].x - corners[0].x, corners[2].y - corners[0].y);
  const float first = VectorAngle(corners[1].x - corners[0].x, corners[1].y - corners[0].y);
  const float difference = second - first;
  if (difference < -kPi) return false;
  return difference <= 0 || difference > kPi;
}

double DoubleArea(const Polygon& polygon) {
  const auto& [a, b, c] = polygon.vertices;
  return (double{b.x} - a.x) * (double{c.y} - a.y) - (double{b.y} - a.y) * (double{c.x} - a.x);
}

bool RunsTheWrongWay(const Polygon& polygon) {
  const double area = DoubleArea(polygon);
  return std::isfinite(area) && area != 0 && !PolygonIsOrdered(polygon);
}

void RecomputeNormals(Polygon& polygon) {
  for (std::size_t i = 0; i < polygon.edges.size(); ++i) {
    const PolygonVertex& from = polygon.vertices[i];
    const PolygonVertex& to = polygon.vertices[(i + 1) % polygon.vertices.size()];
    const WorldPoint normal = EdgeNormal(from.x - to.x, from.y - to.y);
    polygon.edges[i].x = normal.x;
    polygon.edges[i].y = normal.y;
  }
}

bool IsPassablePolygon(const Polygon& polygon) {
  return std::ranges::all_of(polygon.edges, [](const Normal& normal) { return normal.y == 0; });
}

}  // namespace vesmora
