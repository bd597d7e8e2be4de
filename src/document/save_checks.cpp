#include "document/save_checks.h"

#include "platform/text.h"

namespace vesmora {

bool CheckDuplicateVertices(const MapDocument& document, Selection& selection) {
  Selection found;
  for (std::int16_t i = 0; i <= document.polygons.last; ++i) {
    // Corners 2 and 0 are not compared: only these two pairs count.
    const auto& corners = document.polygons[i].vertices;
    const bool firstPair = PlaceOf(corners[0]) == PlaceOf(corners[1]);
    const bool secondPair = PlaceOf(corners[1]) == PlaceOf(corners[2]);
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
  const bool isCtfMap = EqualsIgnoringCase(FileNamePart(path).substr(0, 4), "CTF_");
  if (!isCtfMap) {
    const bool startsWithTeam = !spawns.Empty() && spawns[0].team != kNormalTeam;
    return startsWithTeam ? SpawnProblem::kFlagMapWithoutName : SpawnProblem::kNone;
  }
  const bool isInOrder =
      spawns.Count() < 2 || (spawns[0].team == kRedTeam && spawns[1].team == kBlueTeam);
  return isInOrder ? SpawnProblem::kNone : SpawnProblem::kWrongFlagOrder;
}

}  // namespace vesmora
