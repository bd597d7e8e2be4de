#include <algorithm>

#include "document/finding_list.h"
#include "document/geometry.h"
#include "document/sector_grid.h"

namespace vesmora {
namespace {

constexpr int kSectorPolygons = static_cast<int>(std::tuple_size_v<decltype(Sector::polygons)>);

/// The middle of a sector.
WorldPoint PlaceOfSector(int slot, std::int32_t division) {
  constexpr int kMiddle = kSectorsPerSide / 2;
  const int column = slot / kSectorsPerSide - kMiddle;
  const int row = slot % kSectorsPerSide - kMiddle;
  const auto size = static_cast<float>(division);
  return {static_cast<float>(column) * size, static_cast<float>(row) * size};
}

/// Whether the sector holds polygons of the map and no more than it can.
bool CheckSector(const MapDocument& document, int slot, FindingList& findings) {
  const Sector& sector = document.sectors[static_cast<std::size_t>(slot)];
  const ObjectReference object{ObjectKind::kSector, slot};
  const WorldPoint place = PlaceOfSector(slot, document.sectorDivision);
  if (sector.count < 0 || sector.count > kSectorPolygons) {
    findings.Error("sector-count", object, place,
                   "names " + std::to_string(sector.count) + " polygons");
    return false;
  }
  const auto end = sector.polygons.begin() + sector.count;
  const auto wrong = std::find_if(sector.polygons.begin(), end, [&](std::int16_t number) {
    return number < 1 || number > document.polygons.Count();
  });
  if (wrong == end) return true;
  findings.Error("sector-polygon", object, place,
                 "names polygon " + std::to_string(*wrong) + ", which is not there");
  return false;
}

void CompareWithCompiled(const MapDocument& document, FindingList& findings) {
  const auto& [shortage, differing] = CompareSectors(document);
  if (shortage.crowded > 0) {
    findings.Error("sectors-crowded", {}, std::nullopt,
                   std::to_string(shortage.crowded) + " polygons do not fit in full sectors");
  }
  if (shortage.outside > 0) {
    findings.Error("sectors-outside", {}, std::nullopt,
                   std::to_string(shortage.outside) + " polygons reach out of the sectors");
  }
  if (differing.none()) return;
  int first = 0;
  while (!differing[static_cast<std::size_t>(first)]) ++first;
  const ObjectReference object{ObjectKind::kSector, first};
  findings.Error("sectors-stale", object, PlaceOfSector(first, document.sectorDivision),
                 "does not fit the polygons, nor do " + std::to_string(differing.count() - 1) +
                     " other sectors: compile the map again");
}

}  // namespace

void CheckSectors(const MapDocument& document, FindingList& findings) {
  const auto isEmpty = [](const Sector& sector) { return sector.count == 0; };
  if (std::ranges::all_of(document.sectors, isEmpty)) {
    if (!std::ranges::all_of(document.polygons.Used(), IsPassablePolygon)) {
      findings.Hint("not-compiled", {}, std::nullopt, "has not been compiled");
    }
    return;
  }
  if (document.sectorDivision < 1) {
    findings.Error("sector-size", {}, std::nullopt,
                   "has sectors of the size " + std::to_string(document.sectorDivision));
    return;
  }
  bool areSound = true;
  for (int slot = 0; slot < static_cast<int>(document.sectors.size()); ++slot) {
    areSound = CheckSector(document, slot, findings) && areSound;
  }
  if (areSound) CompareWithCompiled(document, findings);
}

}  // namespace vesmora
