#include "document/geometry.h"

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

EdgeDirection EdgeNormal(float a, float b) {
  // Stored in single precision, but worked out in double: the last bit matters.
  const double dx = NonZero(a);
  const double dy = NonZero(b);
  const double length = std::sqrt(dx * dx + dy * dy);
  return {StoredComponent(dy / length), StoredComponent(-(dx / length))};
}

bool PolygonIsOrdered(const MapDocument& document, int polygon) {
  const auto& corners = document.polygons[static_cast<std::size_t>(polygon)].vertices;
  const float second = VectorAngle(corners[2].x - corners[0].x, corners[2].y - corners[0].y);
  const float first = VectorAngle(corners[1].x - corners[0].x, corners[1].y - corners[0].y);
  const float difference = second - first;
  if (difference < -kPi) return false;
  return difference <= 0 || difference > kPi;
}

void RecomputeNormals(MapDocument& document, int polygon) {
  const auto& corners = document.polygons[static_cast<std::size_t>(polygon)].vertices;
  auto& edges = document.normals[static_cast<std::size_t>(polygon)].edges;
  for (std::size_t i = 0; i < edges.size(); ++i) {
    const PolygonVertex& from = corners[i];
    const PolygonVertex& to = corners[(i + 1) % corners.size()];
    const EdgeDirection normal = EdgeNormal(from.x - to.x, from.y - to.y);
    edges[i].x = normal.x;
    edges[i].y = normal.y;
  }
}

}  // namespace vesmora
