#include "document/save_preparation.h"

#include <span>
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

double WholeUnits(double fixedPoint) { return 256.0 * RoundToInt32(fixedPoint / 256.0); }

}  // namespace

void KorjaaSuunnat(MapDocument& document) {
  for (int i = 0; i <= document.lastPolygon; ++i) {
    if (PolygonIsOrdered(document, i)) continue;
    auto& corners = document.polygons[static_cast<std::size_t>(i)].vertices;
    SwapCornerContents(corners[0], corners[1]);
  }
}

void SnapSpawns(MapDocument& document) {
  const auto used = static_cast<std::size_t>(document.lastSpawn + 1);
  for (SpawnPoint& spawn : std::span(document.spawns).first(used)) {
    spawn.x = RoundToInt32(WholeUnits(spawn.x));
    // Both tests look at x on purpose, so left of the origin y ends one below whole units.
    const int shift = spawn.x < 0 ? 1 : 0;
    spawn.y = RoundToInt32(WholeUnits(static_cast<double>(spawn.y) + shift) - shift);
    spawn.ySign = spawn.y < 0 ? 255 : 0;
  }
}

void PrepareForSave(MapDocument& document) {
  KorjaaSuunnat(document);
  for (int i = 0; i <= document.lastPolygon; ++i) {
    if (!IsPassablePolygon(document.normals[static_cast<std::size_t>(i)])) {
      RecomputeNormals(document, i);
    }
  }
  ZeroTables(document, ZeroSlots::kUnused);
  SnapSpawns(document);
}

}  // namespace vesmora
