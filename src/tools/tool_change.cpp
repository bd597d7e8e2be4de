#include "tools/tool_change.h"

#include "document/numbers.h"
#include "tools/property_text.h"
#include "view/palette.h"

namespace vesmora {
namespace {

void OfferPolygon(Editing& editing) {
  const auto& polygons = editing.document.polygons;
  editing.tool.next.vertexColor =
      polygons.Empty() ? Rgb{255, 255, 255} : ToRgb(polygons.Last().vertices[2].color);
}

void OfferScenery(Editing& editing) {
  const auto& sceneries = editing.document.sceneries;
  editing.tool.value = sceneries.Empty() ? 1 : sceneries.Last().type;
}

void OfferCollider(Editing& editing) {
  const auto& colliders = editing.document.colliders;
  const float radius = colliders.Empty() ? float{kDefaultColliderSize} : colliders.Last().radius;
  editing.tool.value = RoundToInt16(radius);
  editing.tool.next.colliderSize = NumberText(radius);
}

void OfferWaypoint(Editing& editing) {
  const auto& waypoints = editing.document.waypoints;
  editing.tool.value = waypoints.Empty() || waypoints.Last().path == 1 ? 1 : 2;
  editing.tool.next.botSettings = {};
  if (!waypoints.Empty()) editing.tool.next.botSettings = waypoints.Last().botSettings;
  ShowPathBeingAdded(editing);
}

/// What the next object gets until the user chooses otherwise.
void OfferProperties(Editing& editing) {
  switch (editing.document.toolIndex) {
    case ToolMode::kAddPolygon:
      return OfferPolygon(editing);
    case ToolMode::kAddScenery:
      return OfferScenery(editing);
    case ToolMode::kAddCollider:
      return OfferCollider(editing);
    case ToolMode::kAddWaypoint:
      return OfferWaypoint(editing);
    case ToolMode::kAddSpawn:
    case ToolMode::kEdit:
      return;
  }
}

}  // namespace

void ChangeTool(Editing& editing, ToolMode mode) {
  // Chosen again, Add polygon leaves its triangle as far as it has come.
  if (mode == ToolMode::kAddPolygon && editing.activity.Is(ActivityKind::kTriangle)) {
    editing.activity.Forget();
  }
  EndActivity(editing);
  editing.note.clear();
  editing.document.toolIndex = mode;
  editing.tool.value = 0;
  if (mode == ToolMode::kEdit) {
    editing.pointer = PointerShape::kDefault;
  } else {
    editing.show.showFlags[static_cast<std::size_t>(mode) - 1] = 1;
    ClearSelection(editing);
    editing.pointer = PointerShape::kCross;
  }
  OfferProperties(editing);
  RefreshAll(editing);
}

void ChooseTool(Editing& editing, ToolMode mode) {
  if (mode != ToolMode::kEdit) editing.clipboard.Clear();
  ChangeTool(editing, mode);
}

std::string NextVisibility(const Editing& editing) {
  const auto& chosen = editing.tool.next.visibility;
  if (chosen) return *chosen;
  const auto& sceneries = editing.document.sceneries;
  return VisibilityText(sceneries.Empty() ? 255 : sceneries.Last().level);
}

void ShowPathBeingAdded(Editing& editing) {
  std::int16_t& filter = editing.show.pathFilter;
  if (filter != 0 && filter != editing.tool.value) filter = 0;
}

}  // namespace vesmora
