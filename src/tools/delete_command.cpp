#include <algorithm>

#include "document/scenery_types.h"
#include "tools/edit_commands.h"
#include "tools/slot.h"
#include "tools/tool_change.h"
#include "tools/waypoint_links.h"

namespace vesmora {
namespace {

template <typename Table>
void RemoveSlot(Table& table, int slot, int last) {
  std::shift_left(table.begin() + slot, table.begin() + last + 1, 1);
}

void ForgetPolygon(Polygon& polygon) {
  for (PolygonVertex& vertex : polygon.vertices) vertex.color.alpha = 0;
}

void Forget(SpawnPoint& spawn) {
  spawn.active = 0;
  spawn.team = 0;
  spawn.ySign = 0;
  spawn.x = 0;
  spawn.y = 0;
}

void Forget(SceneryObject& scenery) {
  scenery.active = 0;
  scenery.type = 0;
  scenery.x = 0;
  scenery.y = 0;
  scenery.scaleX = 0;
  scenery.scaleY = 0;
}

void Forget(Collider& collider) {
  collider.active = 0;
  collider.x = 0;
  collider.y = 0;
  collider.radius = 0;
}

void Forget(Waypoint& waypoint) {
  waypoint.active = 0;
  waypoint.path = 0;
  waypoint.x = 0;
  waypoint.y = 0;
  waypoint.id = 0;
}

/// Lists are in rising order: each slot removed moves the later ones down.
void DeletePolygons(EditingState& state) {
  MapDocument& document = state.document;
  int removed = 0;
  int previous = -1;
  for (const VertexReference& vertex : state.selection.vertices.Items()) {
    if (vertex.polygon == previous) continue;
    previous = vertex.polygon;
    RemoveSlot(document.polygons, previous - removed, document.lastPolygon);
    RemoveSlot(document.normals, previous - removed, document.lastPolygon);
    --document.lastPolygon;
    ++removed;
  }
  if (removed > 0) ForgetPolygon(SlotAt(document.polygons, document.lastPolygon + 1));
}

template <typename Table, typename List>
void DeleteRecords(Table& table, std::int16_t& last, const List& list) {
  if (list.Empty()) return;
  int removed = 0;
  for (const auto listed : list.Items()) RemoveSlot(table, listed - removed++, last--);
  Forget(SlotAt(table, last + 1));
}

void DeleteWaypoints(EditingState& state) {
  MapDocument& document = state.document;
  const auto& list = state.selection.waypoints;
  if (list.Empty()) return;
  const auto used =
      std::span(document.waypoints).first(static_cast<std::size_t>(document.lastWaypoint + 1));
  for (const std::int16_t slot : list.Items()) {
    const std::int32_t id = SlotAt(document.waypoints, slot).id;
    for (Waypoint& waypoint : used) Unlink(waypoint, id);
  }
  int removed = 0;
  for (const std::int16_t listed : list.Items()) {
    for (int slot = listed - removed; slot < document.lastWaypoint; ++slot) {
      Waypoint& next = SlotAt(document.waypoints, slot + 1);
      Redirect(used, next.id, slot + 1);
      next.id = slot + 1;
      SlotAt(document.waypoints, slot) = next;
    }
    --document.lastWaypoint;
    ++removed;
  }
  Forget(SlotAt(document.waypoints, document.lastWaypoint + 1));
}

void DeleteSelection(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  DeletePolygons(state);
  DeleteRecords(document.spawns, document.lastSpawn, selection.spawns);
  DeleteRecords(document.sceneries, document.lastScenery, selection.sceneries);
  DeleteRecords(document.colliders, document.lastCollider, selection.colliders);
  DeleteWaypoints(state);
  ClearSelection(selection, editing.ports.display);
}

/// Takes back the last placed corner of the polygon under construction: what
/// follows the pointer moves down to the corner that is free now.
void TakeBackCorner(EditingState& state) {
  if (state.tool.value == 1) {
    EndConstruction(state);
    state.gesture.End();
    return;
  }
  auto& corners = SlotAt(state.document.polygons, state.document.lastPolygon).vertices;
  corners[1].x = corners[2].x;
  corners[1].y = corners[2].y;
  corners[2].x = corners[0].x;
  corners[2].y = corners[0].y;
  corners[1].u = 0;
  corners[1].v = 0;
  --state.tool.value;
}

void TakeBackPolygon(EditingState& state) {
  MapDocument& document = state.document;
  if (IsConstructing(state)) {
    TakeBackCorner(state);
  } else if (document.lastPolygon >= 0) {
    ForgetPolygon(SlotAt(document.polygons, document.lastPolygon--));
  }
}

template <typename Table>
void TakeBackLast(Table& table, std::int16_t& last) {
  if (last >= 0) Forget(SlotAt(table, last--));
}

void TakeBackScenery(EditingState& state) {
  const bool wasPending = state.tool.value == kNoToolValue;
  TakeBackLast(state.document.sceneries, state.document.lastScenery);
  if (wasPending) {
    state.tool.value = kLianaType;
    state.gesture.End();
  }
}

void TakeBackWaypoint(const Editing& editing) {
  EditingState& state = editing.state;
  Selection& selection = state.selection;
  if (selection.connectionAnchor != kNoIndex) {
    selection.connectionAnchor = kNoIndex;
    return;
  }
  if (selection.waypoints.Empty() && state.document.lastWaypoint >= 0) {
    selection.waypoints.Add(state.document.lastWaypoint);
  }
  // Deleting is Edit's: choosing that tool keeps the selection, coming back clears it.
  ChangeTool(editing, ToolMode::kEdit);
  DeleteSelection(editing);
  ChangeTool(editing, ToolMode::kAddWaypoint);
}

void TakeBack(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  switch (document.toolIndex) {
    case ToolMode::kAddPolygon:
      return TakeBackPolygon(state);
    case ToolMode::kAddSpawn:
      return TakeBackLast(document.spawns, document.lastSpawn);
    case ToolMode::kAddScenery:
      return TakeBackScenery(state);
    case ToolMode::kAddCollider:
      return TakeBackLast(document.colliders, document.lastCollider);
    case ToolMode::kAddWaypoint:
      return TakeBackWaypoint(editing);
    case ToolMode::kEdit:
      return;
  }
}

}  // namespace

void MenuDelete(const Editing& editing) {
  EditingState& state = editing.state;
  EndMouseWork(state);
  TakeUndoSnapshot(editing, "Delete");
  if (state.document.toolIndex != ToolMode::kEdit) {
    TakeBack(editing);
  } else if (state.selection.Empty()) {
    editing.ports.dialogs.Show({.text = "You need select something at first.",
                                .title = "Problem",
                                .icon = MessageIcon::kInformation});
    return;
  } else {
    DeleteSelection(editing);
  }
  RefreshAll(editing);
}

}  // namespace vesmora
