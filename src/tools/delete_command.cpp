#include <algorithm>

#include "document/scenery_types.h"
#include "tools/edit_commands.h"
#include "tools/slot.h"
#include "tools/tool_change.h"
#include "tools/waypoint_links.h"

namespace vesmora {
namespace {

using Slots = WaypointSlots;  // of any table: that of the waypoints is the largest

template <typename List>
Slots SlotsOf(const List& list) {
  Slots slots;
  for (const auto slot : list.Items()) slots.set(static_cast<std::size_t>(slot));
  return slots;
}

/// Closes up the first `count` slots. Those that become free hold what the last one held,
/// as if the others had moved down one by one.
template <typename Table>
void RemoveSlots(Table& table, const Slots& removed, int count) {
  const auto last = SlotAt(table, count - 1);
  int kept = 0;
  for (int slot = 0; slot < count; ++slot) {
    if (!removed[static_cast<std::size_t>(slot)]) SlotAt(table, kept++) = SlotAt(table, slot);
  }
  std::fill(table.begin() + kept, table.begin() + count, last);
}

void Forget(Polygon& polygon) {
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

template <typename Table>
void DeleteRecords(Table& table, std::int16_t& last, const Slots& deleted) {
  if (deleted.none()) return;
  RemoveSlots(table, deleted, last + 1);
  last = static_cast<std::int16_t>(last - static_cast<int>(deleted.count()));
  Forget(SlotAt(table, last + 1));
}

void DeletePolygons(EditingState& state) {
  MapDocument& document = state.document;
  Slots deleted;
  for (const VertexReference& vertex : state.selection.vertices.Items()) {
    deleted.set(static_cast<std::size_t>(vertex.polygon));
  }
  if (deleted.any()) RemoveSlots(document.normals, deleted, document.lastPolygon + 1);
  DeleteRecords(document.polygons, document.lastPolygon, deleted);
}

void DeleteWaypoints(EditingState& state) {
  MapDocument& document = state.document;
  const Slots deleted = SlotsOf(state.selection.waypoints);
  if (deleted.none()) return;
  const int count = document.lastWaypoint + 1;
  FollowDeletion(std::span(document.waypoints).first(static_cast<std::size_t>(count)), deleted);
  DeleteRecords(document.waypoints, document.lastWaypoint, deleted);
  RemoveSlots(state.waypointKeys, deleted, count);
  const int left = document.lastWaypoint + 1;
  for (int slot = 0; slot < left; ++slot) SlotAt(document.waypoints, slot).id = slot + 1;
  std::fill(state.waypointKeys.begin() + left, state.waypointKeys.begin() + count, 0);
}

void DeleteSelection(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  DeletePolygons(state);
  DeleteRecords(document.spawns, document.lastSpawn, SlotsOf(selection.spawns));
  DeleteRecords(document.sceneries, document.lastScenery, SlotsOf(selection.sceneries));
  DeleteRecords(document.colliders, document.lastCollider, SlotsOf(selection.colliders));
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

template <typename Table>
void TakeBackLast(Table& table, std::int16_t& last) {
  if (last >= 0) Forget(SlotAt(table, last--));
}

void TakeBackPolygon(EditingState& state) {
  MapDocument& document = state.document;
  if (IsConstructing(state)) {
    TakeBackCorner(state);
  } else {
    TakeBackLast(document.polygons, document.lastPolygon);
  }
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
    DropMissing(state.selection, state.document);  // the hovered one may have gone
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
