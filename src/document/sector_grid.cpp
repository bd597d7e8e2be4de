#include "document/sector_grid.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "document/geometry.h"
#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr int kSectorsToCenter = 15;

void Include(PolygonBounds& bounds, const PolygonVertex& corner) {
  const std::int16_t x = RoundToInt16(corner.x);
  const std::int16_t y = RoundToInt16(corner.y);
  bounds.minX = std::min(bounds.minX, x);
  bounds.maxX = std::max(bounds.maxX, x);
  bounds.minY = std::min(bounds.minY, y);
  bounds.maxY = std::max(bounds.maxY, y);
}

/// Without the start values of the map's bounds, which a far polygon need not reach.
PolygonBounds BoundsOfPolygon(const Polygon& polygon) {
  PolygonBounds bounds{INT16_MAX, INT16_MIN, INT16_MAX, INT16_MIN};
  for (const PolygonVertex& corner : polygon.vertices) Include(bounds, corner);
  return bounds;
}

/// Columns or rows, both ends included; `first` may be greater than `last`.
struct SectorRange {
  std::int32_t first;
  std::int32_t last;
};

SectorRange RangeOf(std::int32_t division, std::int16_t min, std::int16_t max) {
  const auto sectorOf = [division](std::int16_t coordinate) {
    const double fromEdge = double{kSectorsToCenter} * division + coordinate;
    return RoundToInt32(fromEdge / division);
  };
  return {sectorOf(min), sectorOf(max)};
}

SectorRange Clipped(SectorRange range) {
  return {std::max(range.first, 0), std::min(range.last, kSectorsPerSide - 1)};
}

bool IsClipped(SectorRange range) { return range.first < 0 || range.last >= kSectorsPerSide; }

/// Calls `enter` with the number of each solid polygon and each sector it belongs to; `enter`
/// returns false when there is no room.
template <typename Enter>
SectorShortage VisitSectors(const MapDocument& document, Enter enter) {
  SectorShortage shortage;
  std::int16_t number = 0;
  for (const Polygon& polygon : document.polygons.Used()) {
    ++number;
    if (IsPassablePolygon(polygon)) continue;
    const PolygonBounds bounds = BoundsOfPolygon(polygon);
    const SectorRange columns = RangeOf(document.sectorDivision, bounds.minX, bounds.maxX);
    const SectorRange rows = RangeOf(document.sectorDivision, bounds.minY, bounds.maxY);
    if (IsClipped(columns) || IsClipped(rows)) ++shortage.outside;
    bool fits = true;
    for (std::int32_t column = Clipped(columns).first; column <= Clipped(columns).last; ++column) {
      for (std::int32_t row = Clipped(rows).first; row <= Clipped(rows).last; ++row) {
        fits = enter(number, static_cast<std::size_t>(column) * kSectorsPerSide +
                                 static_cast<std::size_t>(row)) &&
               fits;
      }
    }
    if (!fits) ++shortage.crowded;
  }
  return shortage;
}

}  // namespace

bool IsCompiled(const MapDocument& document) {
  return std::ranges::any_of(document.sectors,
                             [](const Sector& sector) { return sector.count != 0; });
}

PolygonBounds BoundsOfPolygons(const MapDocument& document) {
  PolygonBounds bounds{9999, -9999, 9999, -9999};
  for (const Polygon& polygon : document.polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) Include(bounds, corner);
  }
  return bounds;
}

SectorShortage FillSectors(MapDocument& document) {
  document.sectors.fill({});
  return VisitSectors(document, [&](std::int16_t number, std::size_t entry) {
    Sector& sector = document.sectors[entry];
    const auto slot = static_cast<std::size_t>(sector.count);
    if (slot == sector.polygons.size()) return false;
    sector.polygons[slot] = number;
    ++sector.count;
    return true;
  });
}

SectorComparison CompareSectors(const MapDocument& document) {
  SectorComparison comparison;
  std::array<std::uint8_t, kSectorCount> counts{};  // of what would have been entered so far
  comparison.shortage = VisitSectors(document, [&](std::int16_t number, std::size_t entry) {
    const auto& polygons = document.sectors[entry].polygons;
    if (counts[entry] == polygons.size()) return false;
    if (polygons[counts[entry]++] != number) comparison.differing.set(entry);
    return true;
  });
  for (std::size_t entry = 0; entry < counts.size(); ++entry) {
    if (document.sectors[entry].count != counts[entry]) comparison.differing.set(entry);
  }
  return comparison;
}

}  // namespace vesmora
