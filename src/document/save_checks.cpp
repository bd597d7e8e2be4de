#include "document/save_checks.h"

#include "platform/text.h"

namespace vesmora {

bool CornersCoincide(const Polygon& polygon, std::size_t corner) {
  const auto& corners = polygon.vertices;
  return PlaceOf(corners[corner]) == PlaceOf(corners[(corner + 1) % corners.size()]);
}

bool IsFlagMapName(const std::string& path) {
  return EqualsIgnoringCase(FileNamePart(path).substr(0, 4), "CTF_");
}

bool CheckDuplicateVertices(const MapDocument& document, Selection& selection) {
  Selection found;
  for (std::int16_t i = 0; i <= document.polygons.last; ++i) {
    // Corners 2 and 0 are not compared: only these two pairs count.
    const bool firstPair = CornersCoincide(document.polygons[i], 0);
    const bool secondPair = CornersCoincide(document.polygons[i], 1);
    if (firstPair) found.vertices.Append({i, 0});
    if (firstPair || secondPair) found.vertices.Append({i, 1});
    if (secondPair) found.vertices.Append({i, 2});
  }
  if (found.Empty()) return false;
  UpdateSelectionBox(found, document);
  selection = found;
  return true;
}

SpawnProblem CheckCtfSpawns(const MapDocument& document, const std::string& path) {
  const auto& spawns = document.spawns;
  if (!IsFlagMapName(path)) {
    const bool startsWithTeam = !spawns.Empty() && spawns[0].team != kNormalTeam;
    return startsWithTeam ? SpawnProblem::kFlagMapWithoutName : SpawnProblem::kNone;
  }
  const bool isInOrder =
      spawns.Count() < 2 || (spawns[0].team == kRedTeam && spawns[1].team == kBlueTeam);
  return isInOrder ? SpawnProblem::kNone : SpawnProblem::kWrongFlagOrder;
}

}  // namespace vesmora
