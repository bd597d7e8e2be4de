// The checks of spawns, sceneries and colliders.
#include <algorithm>

#include "document/finding_list.h"
#include "document/geometry.h"
#include "document/save_checks.h"
#include "document/scenery_types.h"
#include "document/value_checks.h"

namespace vesmora {
namespace {

/// Edges are not inside.
bool IsInside(WorldPoint point, const Polygon& polygon) {
  const auto side = [point](const PolygonVertex& from, const PolygonVertex& to) {
    return (double{to.x} - from.x) * (double{point.y} - from.y) -
           (double{to.y} - from.y) * (double{point.x} - from.x);
  };
  const auto& [a, b, c] = polygon.vertices;
  const auto [left, right] = std::minmax({a.x, b.x, c.x});
  if (point.x <= left || point.x >= right) return false;  // so it is with nearly all
  const double first = side(a, b);
  return first * side(b, c) > 0 && first * side(c, a) > 0;
}

/// The slot of a solid polygon around the point, -1 for none.
int SolidPolygonAt(const MapDocument& document, WorldPoint point) {
  int slot = 0;
  for (const Polygon& polygon : document.polygons.Used()) {
    if (IsInside(point, polygon) && !IsPassablePolygon(polygon)) return slot;
    ++slot;
  }
  return -1;
}

void CheckGameRules(const MapDocument& document, const std::string& fileName,
                    FindingList& findings) {
  const auto& spawns = document.spawns;
  if (spawns.Empty()) {
    findings.Hint("no-spawns", {}, std::nullopt, "has no spawn points");
  } else if (IsFlagMapName(fileName) && spawns.Count() < 2) {
    findings.Error("flag-missing", {}, std::nullopt,
                   "is named as a capture-the-flag map but has no spawn points for two flags");
  }
  const ObjectReference first{ObjectKind::kSpawn, 0};
  switch (CheckCtfSpawns(document, fileName)) {
    case SpawnProblem::kFlagMapWithoutName:
      return findings.Error("flag-map-name", first, PlaceOf(spawns[0]),
                            "is no deathmatch spawn point, but the map's file name does not start "
                            "with ctf_");
    case SpawnProblem::kWrongFlagOrder:
      return findings.Error("flag-order", first, PlaceOf(spawns[0]),
                            "a capture-the-flag map must begin with the red and then the blue "
                            "spawn point");
    case SpawnProblem::kNone:
      return;
  }
}

void CheckShape(const SceneryObject& scenery, const ObjectReference& object,
                FindingList& findings) {
  const bool isFine = CheckNumbers(findings, object,
                                   {{"rotation", scenery.rotation, kRotationRange},
                                    {"width's scale", scenery.scaleX, kScaleRange},
                                    {"height's scale", scenery.scaleY, kScaleRange}});
  if (isFine && (scenery.scaleX == 0 || scenery.scaleY == 0)) {
    findings.Error("value-range", object, PlaceOf(scenery), "is scaled to nothing");
  }
  // The picture is as large as that of its type all the same: nothing reads these.
  for (const auto size : {scenery.width, scenery.height}) {
    if (kBaseSizeRange.Holds(static_cast<float>(size))) continue;
    findings.Hint("value-range", object, PlaceOf(scenery),
                  "was made with an impossible base size of " + std::to_string(size));
    break;
  }
}

}  // namespace

void CheckSpawns(const MapDocument& document, const std::string& fileName, FindingList& findings) {
  CheckGameRules(document, fileName, findings);
  int slot = 0;
  for (const SpawnPoint& spawn : document.spawns.Used()) {
    const ObjectReference object{ObjectKind::kSpawn, slot++};
    const WorldPoint place = PlaceOf(spawn);
    if (spawn.team > kBlueTeam) {
      findings.Error("spawn-team", object, place,
                     "is of the unknown team " + std::to_string(spawn.team));
    }
    if (!CheckPlace(findings, object, place)) continue;
    const int around = SolidPolygonAt(document, place);
    if (around >= 0) {
      findings.Error("spawn-in-polygon", object, place,
                     "lies inside the solid polygon " + std::to_string(around + 1));
    }
  }
}

void CheckSceneries(const MapDocument& document, FindingList& findings) {
  int slot = 0;
  for (const SceneryObject& scenery : document.sceneries.Used()) {
    const ObjectReference object{ObjectKind::kScenery, slot++};
    if (SceneryTypeOf(scenery.type).name.empty()) {
      findings.Error("scenery-type", object, PlaceOf(scenery),
                     "is of the unknown type " + std::to_string(scenery.type));
    }
    CheckShape(scenery, object, findings);
    if (CheckNumbers(findings, object, {{"x", scenery.x}, {"y", scenery.y}})) {
      CheckPlace(findings, object, PlaceOf(scenery));
    }
  }
}

void CheckColliders(const MapDocument& document, FindingList& findings) {
  int slot = 0;
  for (const Collider& collider : document.colliders.Used()) {
    const ObjectReference object{ObjectKind::kCollider, slot++};
    const bool isPlaced = CheckNumbers(findings, object, {{"x", collider.x}, {"y", collider.y}});
    if (isPlaced) CheckPlace(findings, object, PlaceOf(collider));
    if (!CheckNumbers(findings, object, {{"size", collider.radius}})) continue;
    if (collider.radius <= 0 || collider.radius > 2 * kFarthestPlace) {
      findings.Error("collider-size", object, PlaceOf(collider), "has an impossible size");
    }
  }
}

}  // namespace vesmora
