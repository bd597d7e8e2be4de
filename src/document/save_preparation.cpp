#include "document/save_preparation.h"

#include <algorithm>
#include <utility>

#include "document/geometry.h"
#include "document/numbers.h"

namespace vesmora {
namespace {

void SwapCornerContents(PolygonVertex& a, PolygonVertex& b) {
  std::swap(a.x, b.x);
  std::swap(a.y, b.y);
  std::swap(a.color.blue, b.color.blue);
  std::swap(a.color.green, b.color.green);
  std::swap(a.color.red, b.color.red);
  std::swap(a.u, b.u);
  std::swap(a.v, b.v);
}

/// What is selected stays the corner of its place when corners 0 and 1 are exchanged.
void FollowTurnedCorners(Selection& selection, const MapDocument& document) {
  const auto listed = selection.vertices;
  selection.vertices.Clear();
  for (VertexReference vertex : listed.Used()) {
    const VertexReference other{vertex.polygon, static_cast<std::uint8_t>(1 - vertex.corner)};
    const bool isTurned = vertex.corner < 2 && !PolygonIsOrdered(document.polygons[vertex.polygon]);
    if (isTurned && std::ranges::count(listed.Used(), other) == 0) vertex = other;
    selection.vertices.Append(vertex);
  }
}

double WholeUnits(double fixedPoint) { return 256.0 * RoundToInt32(fixedPoint / 256.0); }

}  // namespace

void KorjaaSuunnat(MapDocument& document) {
  for (Polygon& polygon : document.polygons.Used()) {
    if (!PolygonIsOrdered(polygon)) SwapCornerContents(polygon.vertices[0], polygon.vertices[1]);
  }
}

void SnapSpawns(MapDocument& document) {
  for (SpawnPoint& spawn : document.spawns.Used()) {
    spawn.x = RoundToInt32(WholeUnits(spawn.x));
    // Both tests look at x on purpose, so left of the origin y ends one below whole units.
    const int shift = spawn.x < 0 ? 1 : 0;
    spawn.y = RoundToInt32(WholeUnits(static_cast<double>(spawn.y) + shift) - shift);
    spawn.ySign = spawn.y < 0 ? 255 : 0;
  }
}

void PrepareForSave(MapDocument& document, Selection& selection) {
  FollowTurnedCorners(selection, document);
  KorjaaSuunnat(document);
  for (Polygon& polygon : document.polygons.Used()) {
    if (!IsPassablePolygon(polygon)) RecomputeNormals(polygon);
  }
  ZeroFreeSlots(document);
  SnapSpawns(document);
}

}  // namespace vesmora
