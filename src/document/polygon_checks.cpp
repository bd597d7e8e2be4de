#include <algorithm>

#include "document/finding_list.h"
#include "document/geometry.h"
#include "document/save_checks.h"
#include "document/value_checks.h"

namespace vesmora {
namespace {

constexpr double kLeastHeight = 0.01;  // world units

/// World units, over the longest side; no two corners lie on one spot.
double SmallestHeight(const Polygon& polygon) {
  const auto sideSquared = [&polygon](std::size_t from, std::size_t to) {
    const double dx = double{polygon.vertices[to].x} - polygon.vertices[from].x;
    const double dy = double{polygon.vertices[to].y} - polygon.vertices[from].y;
    return dx * dx + dy * dy;
  };
  const double longestSquared = std::max({sideSquared(0, 1), sideSquared(1, 2), sideSquared(2, 0)});
  return std::abs(DoubleArea(polygon)) / std::sqrt(longestSquared);
}

/// Whether all of a polygon's values can be; corners far outside are told of, but are numbers.
bool CheckValues(const Polygon& polygon, int slot, FindingList& findings) {
  bool areNumbers = true;
  for (int corner = 0; corner < 3; ++corner) {
    const PolygonVertex& vertex = polygon.vertices[static_cast<std::size_t>(corner)];
    const ObjectReference object{ObjectKind::kPolygon, slot, corner};
    if (CheckNumbers(findings, object, {{"x", vertex.x}, {"y", vertex.y}})) {
      CheckPlace(findings, object, PlaceOf(vertex));
    } else {
      areNumbers = false;
    }
    CheckNumbers(findings, object,
                 {{"z", vertex.z, kDepthRange},
                  {"rhw", vertex.rhw, kDepthRange},
                  {"texture coordinate u", vertex.u, kTextureRange},
                  {"texture coordinate v", vertex.v, kTextureRange}});
  }
  for (const Normal& edge : polygon.edges) {
    const ObjectReference object{ObjectKind::kPolygon, slot};
    const bool isFine = CheckNumbers(
        findings, object,
        {{"edge normal's x", edge.x}, {"edge normal's y", edge.y}, {"edge normal's z", edge.z}});
    if (!isFine) break;
  }
  return areNumbers;
}

void CheckShape(const Polygon& polygon, int slot, FindingList& findings) {
  const ObjectReference object{ObjectKind::kPolygon, slot};
  if (CornersCoincide(polygon, 0) && CornersCoincide(polygon, 1)) {
    findings.Error("one-spot", object, PlaceOf(polygon.vertices[0]),
                   "all its corners lie on one spot");
    return;
  }
  bool coincide = false;
  for (int corner = 0; corner < 3; ++corner) {
    if (!CornersCoincide(polygon, static_cast<std::size_t>(corner))) continue;
    coincide = true;
    findings.Error("one-spot", object, PlaceOf(polygon.vertices[static_cast<std::size_t>(corner)]),
                   "corners " + std::to_string(corner + 1) + " and " +
                       std::to_string((corner + 1) % 3 + 1) + " lie on one spot");
  }
  if (coincide) return;
  const double height = SmallestHeight(polygon);
  if (height == 0) {
    findings.Error("no-area", object, PlaceOf(polygon.vertices[0]),
                   "has no area: its corners lie on one line");
  } else if (height < kLeastHeight) {
    findings.Hint("no-area", object, PlaceOf(polygon.vertices[0]),
                  "has hardly any area: its corners lie almost on one line");
  }
}

}  // namespace

void CheckPolygons(const MapDocument& document, FindingList& findings) {
  int slot = 0;
  for (const Polygon& polygon : document.polygons.Used()) {
    if (CheckValues(polygon, slot, findings)) CheckShape(polygon, slot, findings);
    ++slot;
  }
}

}  // namespace vesmora
