// The sector grid: which polygons the game looks at in which part of the map.
#pragma once

#include <bitset>
#include <cstddef>

#include "document/map_document.h"

namespace vesmora {

/// Polygons that are missing in at least one sector they belong to.
struct SectorShortage {
  int outside = 0;  // they reach out of the grid
  int crowded = 0;  // a sector holds all it can
};

/// Enters the polygons in the sectors that their bounding boxes touch, for the division
/// that the document has. Passable ones belong nowhere.
SectorShortage FillSectors(MapDocument& document);

inline constexpr std::size_t kSectorCount = std::tuple_size_v<decltype(MapDocument::sectors)>;

struct SectorComparison {
  SectorShortage shortage;  // as FillSectors tells it
  std::bitset<kSectorCount> differing;
};

/// Which sectors hold anything else than FillSectors would enter.
SectorComparison CompareSectors(const MapDocument& document);

/// Whether the game finds any polygon in the sectors.
bool IsCompiled(const MapDocument& document);

/// Whole world units.
struct PolygonBounds {
  std::int16_t minX = 0;
  std::int16_t maxX = 0;
  std::int16_t minY = 0;
  std::int16_t maxY = 0;
};

/// Of all polygons, within what the game can take: a side that nothing lies on is at 9999 or -9999.
PolygonBounds BoundsOfPolygons(const MapDocument& document);

}  // namespace vesmora
