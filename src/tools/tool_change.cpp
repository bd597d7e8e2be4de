#include "tools/tool_change.h"

#include "document/numbers.h"
#include "tools/property_text.h"
#include "view/palette.h"

namespace vesmora {
namespace {

template <typename Table>
const auto& LastOf(const Table& table, std::int16_t last) {
  return table[static_cast<std::size_t>(last)];
}

void OfferPolygon(EditingState& state) {
  const MapDocument& document = state.document;
  state.tool.next.vertexColor =
      document.lastPolygon < 0
          ? Rgb{255, 255, 255}
          : ToRgb(LastOf(document.polygons, document.lastPolygon).vertices[2].color);
}

void OfferScenery(EditingState& state) {
  const MapDocument& document = state.document;
  state.tool.value = 1;
  state.tool.next.visibility = "100%";
  if (document.lastScenery < 0) return;
  const SceneryObject& last = LastOf(document.sceneries, document.lastScenery);
  state.tool.value = last.type;
  state.tool.next.visibility = VisibilityText(last.level);
}

void OfferCollider(EditingState& state) {
  const MapDocument& document = state.document;
  const float radius = document.lastCollider < 0
                           ? float{kDefaultColliderSize}
                           : LastOf(document.colliders, document.lastCollider).radius;
  state.tool.value = RoundToInt16(radius);
  state.tool.next.colliderSize = NumberText(radius);
}

void OfferWaypoint(EditingState& state) {
  const MapDocument& document = state.document;
  state.tool.value = 1;
  state.tool.next.botSettings = {};
  if (document.lastWaypoint < 0) return;
  const Waypoint& last = LastOf(document.waypoints, document.lastWaypoint);
  state.tool.value = last.path == 1 ? 1 : 2;
  state.tool.next.botSettings = last.botSettings;
}

/// What the next object gets until the user chooses otherwise.
void OfferProperties(EditingState& state, ToolMode mode) {
  switch (mode) {
    case ToolMode::kAddPolygon:
      return OfferPolygon(state);
    case ToolMode::kAddScenery:
      return OfferScenery(state);
    case ToolMode::kAddCollider:
      return OfferCollider(state);
    case ToolMode::kAddWaypoint:
      return OfferWaypoint(state);
    case ToolMode::kAddSpawn:  // always the normal team
    case ToolMode::kEdit:
      return;
  }
}

}  // namespace

bool IsConstructing(const EditingState& state) {
  return state.document.toolIndex == ToolMode::kAddPolygon && state.tool.value >= 1;
}

void EndConstruction(EditingState& state) {
  if (!IsConstructing(state)) return;
  --state.document.lastPolygon;
  state.tool.value = 0;
  DropMissing(state.selection, state.document);
}

SceneryObject* PendingScenery(EditingState& state) {
  const std::int16_t slot = state.tool.pendingScenery;
  if (slot < 0 || slot > state.document.lastScenery) return nullptr;
  return &state.document.sceneries[static_cast<std::size_t>(slot)];
}

void EndPendingDirection(EditingState& state) {
  if (state.tool.value != kNoToolValue) return;
  if (SceneryObject* scenery = PendingScenery(state)) scenery->rotation = kLianaRotation;
  state.tool.value = 0;
}

void ChangeTool(const Editing& editing, ToolMode mode) {
  EditingState& state = editing.state;
  EndPendingDirection(state);
  if (mode != ToolMode::kAddPolygon) EndConstruction(state);
  EndMouseWork(state);
  state.gesture.End();  // Escape reaches back no further than the tool's own work
  state.document.toolIndex = mode;
  state.tool.value = 0;
  state.selection.connectionAnchor = kNoIndex;
  if (mode == ToolMode::kEdit) {
    editing.ports.display.SetPointer(PointerShape::kDefault);
  } else {
    state.show.showFlags[static_cast<std::size_t>(mode) - 1] = 1;
    ClearSelection(state.selection, editing.ports.display);
    // The previews of the Add tools use the slots where the copies lie.
    ClearClipboard(state.clipboard);
    editing.ports.display.SetPointer(PointerShape::kCross);
  }
  OfferProperties(state, mode);
  RefreshAll(editing);
}

}  // namespace vesmora
