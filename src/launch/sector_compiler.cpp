#include "launch/sector_compiler.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "document/numbers.h"
#include "tools/move_selection.h"
#include "tools/picking.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr double kDivisions = 30;  // the map spans, so that it ends within the outer sectors

std::int32_t DivisionFor(const PolygonBounds& bounds) {
  return RoundToInt32(std::max(bounds.maxX - bounds.minX, bounds.maxY - bounds.minY) / kDivisions);
}

/// Moves the middle of the bounds to the origin, with all that lies in them, shown or not.
void CenterMap(MapDocument& document, const PolygonBounds& bounds, bool keepsTexture) {
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
                keepsTexture);
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

std::string WhyNotCompiled(const MapDocument& document) {
  if (document.polygons.Empty()) return "There are no polygons to compile.";
  if (DivisionFor(BoundsOfPolygons(document)) < 1) return "The map is too small to compile.";
  return {};
}

void DivideMap(MapDocument& document, bool keepsTexture) {
  const PolygonBounds bounds = BoundsOfPolygons(document);
  CenterMap(document, bounds, keepsTexture);
  document.sectorDivision = DivisionFor(bounds);
}

SectorShortage CompileMap(MapDocument& document, bool keepsTexture) {
  DivideMap(document, keepsTexture);
  return FillSectors(document);
}

bool CompileSectors(Editing& editing) {
  MapDocument& document = editing.document;
  if (editing.activity.Is(ActivityKind::kTriangle)) {  // no part of the map
    editing.activity.Finish(editing);
    RefreshAll(editing);
  }
  if (const std::string reason = WhyNotCompiled(document); !reason.empty()) {
    Refuse(editing, reason);
    return false;
  }
  EndActivity(editing);
  TakeUndoSnapshot(editing, "Move");
  const SectorShortage shortage = CompileMap(document, editing.tool.next.noTextureCorrection);
  ClearSelection(editing);
  ChangeTool(editing, ToolMode::kEdit);
  if (shortage.outside + shortage.crowded > 0) Report(editing, shortage);
  return true;
}

}  // namespace vesmora
