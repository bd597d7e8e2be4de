#include <algorithm>
#include <optional>
#include <vector>

#include "document/finding_list.h"
#include "document/geometry.h"
#include "document/number_text.h"
#include "document/sector_grid.h"
#include "document/value_checks.h"

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

/// Whether the sector holds no more polygons than it can.
bool CheckCount(const MapDocument& document, int slot, FindingList& findings) {
  const Sector& sector = document.sectors[static_cast<std::size_t>(slot)];
  const ObjectReference object{ObjectKind::kSector, slot};
  const WorldPoint place = PlaceOfSector(slot, document.sectorDivision);
  if (sector.count < 0 || sector.count > kSectorPolygons) {
    findings.Error("sector-count", object, place,
                   "names " + std::to_string(sector.count) + " polygons");
    return false;
  }
  return true;
}

/// The first polygon that a sector names and the map does not have.
std::optional<std::int16_t> MissingPolygon(const MapDocument& document, int slot) {
  const Sector& sector = document.sectors[static_cast<std::size_t>(slot)];
  if (sector.count < 0 || sector.count > kSectorPolygons) return std::nullopt;
  const auto end = sector.polygons.begin() + sector.count;
  const auto wrong = std::find_if(sector.polygons.begin(), end, [&](std::int16_t number) {
    return number < 1 || number > document.polygons.Count();
  });
  if (wrong == end) return std::nullopt;
  return *wrong;
}

/// Whether the sectors hold polygons of the map only. One line for them all: where polygons are
/// gone, many sectors still name them.
bool CheckNames(const MapDocument& document, const std::vector<int>& slots, FindingList& findings) {
  const auto names = [&](int slot) { return MissingPolygon(document, slot).has_value(); };
  const auto first = std::ranges::find_if(slots, names);
  if (first == slots.end()) return true;
  const auto number = MissingPolygon(document, *first).value_or(0);
  std::string text = "names polygon " + std::to_string(number) + ", which is not there";
  const auto others = std::count_if(first + 1, slots.end(), names);
  if (others > 0) {
    text += "; so it is with " +
            Counted(static_cast<std::size_t>(others), "other sector", "other sectors");
  }
  findings.Error("sector-polygon", {ObjectKind::kSector, *first},
                 PlaceOfSector(*first, document.sectorDivision), std::move(text));
  return false;
}

void TellShortage(const SectorShortage& shortage, FindingList& findings) {
  if (shortage.crowded > 0) {
    findings.Error(
        "sectors-crowded", {}, std::nullopt,
        Counted(static_cast<std::size_t>(shortage.crowded), "polygon does", "polygons do") +
            " not fit in full sectors");
  }
  if (shortage.outside > 0) {
    findings.Error(
        "sectors-outside", {}, std::nullopt,
        Counted(static_cast<std::size_t>(shortage.outside), "polygon reaches", "polygons reach") +
            " out of the sectors");
  }
}

void TellStale(const MapDocument& document, const std::vector<int>& slots, FindingList& findings) {
  std::string text = "does not fit the polygons";
  if (const std::size_t others = slots.size() - 1; others > 0) {
    text += others == 1 ? ", nor does " : ", nor do ";
    text += Counted(others, "other sector", "other sectors");
  }
  findings.Error("sectors-stale", {ObjectKind::kSector, slots.front()},
                 PlaceOfSector(slots.front(), document.sectorDivision),
                 text + ": compile the map again");
}

}  // namespace

void CheckSectors(const MapDocument& document, FindingList& findings) {
  if (!IsCompiled(document)) {
    if (!std::ranges::all_of(document.polygons.Used(), IsPassablePolygon)) {
      findings.Hint("not-compiled", {}, std::nullopt, "has not been compiled");
    }
    return;
  }
  if (document.sectorDivision < 1 || document.sectorDivision > kLargestSectorSize) {
    findings.Error("sector-size", {}, std::nullopt,
                   "has sectors of the size " + std::to_string(document.sectorDivision));
    return;
  }
  const auto& [shortage, differing] = CompareSectors(document);
  // What no compiler would enter differs from what ours does: the others need no second look.
  std::vector<int> slots;
  bool areSound = true;
  for (int slot = 0; slot < static_cast<int>(document.sectors.size()); ++slot) {
    if (!differing[static_cast<std::size_t>(slot)]) continue;
    slots.push_back(slot);
    areSound = CheckCount(document, slot, findings) && areSound;
  }
  areSound = CheckNames(document, slots, findings) && areSound;
  if (!areSound) return;
  TellShortage(shortage, findings);
  if (!slots.empty()) TellStale(document, slots, findings);
}

}  // namespace vesmora
