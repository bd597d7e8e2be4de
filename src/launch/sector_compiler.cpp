#include "launch/sector_compiler.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "document/geometry.h"
#include "document/numbers.h"
#include "tools/move_selection.h"
#include "tools/picking.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr int kSectorsToCenter = 15;
constexpr double kDivisions = 30;  // the map spans, so that it ends within the outer sectors

/// Whole world units.
struct Bounds {
  std::int16_t minX = 9999;
  std::int16_t maxX = -9999;
  std::int16_t minY = 9999;
  std::int16_t maxY = -9999;

  void Include(const PolygonVertex& corner) {
    const std::int16_t x = RoundToInt16(corner.x);
    const std::int16_t y = RoundToInt16(corner.y);
    minX = std::min(minX, x);
    maxX = std::max(maxX, x);
    minY = std::min(minY, y);
    maxY = std::max(maxY, y);
  }
};

Bounds BoundsOfMap(const MapDocument& document) {
  Bounds bounds;
  for (const Polygon& polygon : document.polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) bounds.Include(corner);
  }
  return bounds;
}

/// Without the start values of the map's bounds, which a far polygon need not reach.
Bounds BoundsOfPolygon(const Polygon& polygon) {
  Bounds bounds{INT16_MAX, INT16_MIN, INT16_MAX, INT16_MIN};
  for (const PolygonVertex& corner : polygon.vertices) bounds.Include(corner);
  return bounds;
}

std::int32_t DivisionFor(const Bounds& bounds) {
  return RoundToInt32(std::max(bounds.maxX - bounds.minX, bounds.maxY - bounds.minY) / kDivisions);
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

/// False when a sector had no room for it.
bool Enter(MapDocument& document, std::int16_t number, SectorRange columns, SectorRange rows) {
  bool fits = true;
  for (std::int32_t column = columns.first; column <= columns.last; ++column) {
    for (std::int32_t row = rows.first; row <= rows.last; ++row) {
      const std::int32_t entry = column * kSectorsPerSide + row;
      Sector& sector = document.sectors[static_cast<std::size_t>(entry)];
      const auto slot = static_cast<std::size_t>(sector.count);
      if (slot == sector.polygons.size()) {
        fits = false;
        continue;
      }
      sector.polygons[slot] = number;
      ++sector.count;
    }
  }
  return fits;
}

/// Moves the middle of the bounds to the origin, with all that lies in them, shown or not.
void CenterMap(Editing& editing, const Bounds& bounds) {
  MapDocument& document = editing.document;
  ShowOptions everything;
  everything.showFlags.fill(1);
  const SelectionBox box{.left = bounds.minX - 1.0f,
                         .right = bounds.maxX + 1.0f,
                         .top = bounds.minY - 1.0f,
                         .bottom = bounds.maxY + 1.0f};
  Selection inside;
  ListInBox(document, everything, box, SelectionKind::kAll, inside);
  const auto middle = [](std::int16_t min, std::int16_t max) {
    return static_cast<float>(min + max) / 2;
  };
  ShiftSelected(document, inside,
                {-middle(bounds.minX, bounds.maxX), -middle(bounds.minY, bounds.maxY)},
                editing.tool.next.noTextureCorrection);
}

void Report(const Editing& editing, const SectorShortage& shortage) {
  std::string text = "Your map was compiled but its sectors do not hold all of it.\n";
  if (shortage.outside > 0) {
    text += "\nPolygons that reach out of the sectors: " + std::to_string(shortage.outside);
  }
  if (shortage.crowded > 0) {
    text += "\nPolygons left out of full sectors: " + std::to_string(shortage.crowded);
  }
  editing.ports.dialogs.Show(
      {.text = text, .title = "Polygon warning", .icon = MessageIcon::kExclamation});
}

}  // namespace

SectorShortage FillSectors(MapDocument& document) {
  document.sectors.fill({});
  SectorShortage shortage;
  std::int16_t number = 0;
  for (const Polygon& polygon : document.polygons.Used()) {
    ++number;
    if (IsPassablePolygon(polygon)) continue;
    const Bounds bounds = BoundsOfPolygon(polygon);
    const SectorRange columns = RangeOf(document.sectorDivision, bounds.minX, bounds.maxX);
    const SectorRange rows = RangeOf(document.sectorDivision, bounds.minY, bounds.maxY);
    if (IsClipped(columns) || IsClipped(rows)) ++shortage.outside;
    if (!Enter(document, number, Clipped(columns), Clipped(rows))) ++shortage.crowded;
  }
  return shortage;
}

bool CompileSectors(Editing& editing) {
  MapDocument& document = editing.document;
  if (editing.activity.Is(ActivityKind::kTriangle)) {  // no part of the map
    editing.activity.Finish(editing);
    RefreshAll(editing);
  }
  const Bounds bounds = BoundsOfMap(document);
  if (document.polygons.Empty()) {
    Refuse(editing, "There are no polygons to compile.");
    return false;
  }
  const std::int32_t division = DivisionFor(bounds);
  if (division < 1) {
    Refuse(editing, "The map is too small to compile.");
    return false;
  }
  EndActivity(editing);
  TakeUndoSnapshot(editing, "Move");
  CenterMap(editing, bounds);
  ClearSelection(editing);
  document.sectorDivision = division;
  const SectorShortage shortage = FillSectors(document);
  ChangeTool(editing, ToolMode::kEdit);
  if (shortage.outside + shortage.crowded > 0) Report(editing, shortage);
  return true;
}

}  // namespace vesmora
