#include "document/map_checks.h"

#include <algorithm>

#include "document/finding_list.h"

namespace vesmora {
namespace {

bool IsPossibleCount(int polygonCount) {
  return polygonCount >= 0 && polygonCount <= kPolygonCapacity;
}

void CheckProperties(const CheckedMap& map, FindingList& findings) {
  if (!IsPossibleCount(map.polygonCount)) {
    findings.Error("polygon-count", {}, std::nullopt,
                   "names " + std::to_string(map.polygonCount) + " polygons, " +
                       std::to_string(map.document.polygons.Count()) + " can be used");
  }
  if (map.document.texture[0] == '\0') {
    findings.Hint("no-texture", {}, std::nullopt, "has no texture");
  }
  const auto isControl = [](char character) { return character >= 1 && character < ' '; };
  if (std::ranges::any_of(map.document.texture, isControl) ||
      std::ranges::any_of(map.document.author, isControl)) {
    findings.Error("control-character", {}, std::nullopt,
                   "has control characters in its texture's or its author's name");
  }
}

}  // namespace

std::vector<Finding> CheckMap(const CheckedMap& map, MapDocument& scratch) {
  FindingList findings;
  CheckProperties(map, findings);
  CheckPolygons(map.document, findings);
  CheckSpawns(map.document, map.fileName, findings);
  CheckSceneries(map.document, findings);
  CheckColliders(map.document, findings);
  CheckWaypoints(map.document, findings);
  const bool isCountPossible = IsPossibleCount(map.polygonCount);
  if (isCountPossible) CheckSectors(map.document, findings);
  CheckWhatSaveChanges(map.document, scratch, isCountPossible, findings);
  return findings.Take();
}

}  // namespace vesmora
