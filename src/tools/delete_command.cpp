#include <algorithm>

#include "document/waypoint_links.h"
#include "tools/edit_commands.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using Slots = WaypointSlots;  // of any table: that of the waypoints is the largest

template <typename List>
Slots SlotsOf(const List& list) {
  Slots slots;
  for (const auto entry : list.Used()) slots.set(static_cast<std::size_t>(SlotOf(entry)));
  return slots;
}

/// Closes up records. The places that become free hold what the last one held, as if the
/// others had moved down one by one.
template <typename Record>
void CloseUp(std::span<Record> records, const Slots& removed) {
  const Record last = records.back();
  std::size_t kept = 0;
  for (std::size_t slot = 0; slot < records.size(); ++slot) {
    if (!removed[slot]) records[kept++] = records[slot];
  }
  std::ranges::fill(records.subspan(kept), last);
}

void VacateRest(SpawnPoint& spawn) {
  spawn.team = 0;
  spawn.ySign = 0;
}
void VacateRest(SceneryObject& scenery) {
  scenery.type = 0;
  scenery.scaleX = 0;
  scenery.scaleY = 0;
}
void VacateRest(Collider& collider) { collider.radius = 0; }
void VacateRest(Waypoint& waypoint) {
  waypoint.path = 0;
  waypoint.id = 0;
}

/// What a free slot no longer says; all else in it stays.
template <typename Record>
void Vacate(Record& record) {
  record.active = 0;
  record.x = 0;
  record.y = 0;
  VacateRest(record);
}
void Vacate(Polygon& polygon) {
  for (PolygonVertex& vertex : polygon.vertices) vertex.color.alpha = 0;
}

template <typename TableType>
void DeleteRecords(TableType& table, const Slots& deleted) {
  if (deleted.none()) return;
  CloseUp(table.Used(), deleted);
  table.SetCount(table.Count() - static_cast<int>(deleted.count()));
  Vacate(table.Free().front());
}

void DeleteWaypoints(EditedMap& map, const Slots& deleted) {
  if (deleted.none()) return;
  auto& waypoints = map.document.waypoints;
  const auto keys = std::span(map.waypointKeys).first(waypoints.Used().size());
  CloseUp(keys, deleted);
  std::ranges::fill(keys.last(deleted.count()), 0);
  FollowDeletion(waypoints.Used(), deleted);
  DeleteRecords(waypoints, deleted);
  for (int slot = 0; slot <= waypoints.last; ++slot) waypoints[slot].id = slot + 1;
}

void DeleteSelection(Editing& editing) {
  MapDocument& document = editing.document;
  const Selection& selection = editing.selection;
  DeleteRecords(document.polygons, SlotsOf(selection.vertices));
  DeleteRecords(document.spawns, SlotsOf(selection.spawns));
  DeleteRecords(document.sceneries, SlotsOf(selection.sceneries));
  DeleteRecords(document.colliders, SlotsOf(selection.colliders));
  DeleteWaypoints(editing, SlotsOf(selection.waypoints));
  ClearSelection(editing);
}

/// Takes back the last placed corner of the polygon under construction: what
/// follows the pointer moves down to the corner that is free now.
void TakeBackCorner(Editing& editing) {
  Activity& triangle = editing.activity;
  if (triangle.PlacedCorners() == 1) {
    triangle.Finish(editing);
    return;
  }
  auto& corners = editing.document.polygons.Last().vertices;
  corners[1].x = corners[2].x;
  corners[1].y = corners[2].y;
  corners[2].x = corners[0].x;
  corners[2].y = corners[0].y;
  corners[1].u = 0;
  corners[1].v = 0;
  triangle.SetPlacedCorners(triangle.PlacedCorners() - 1);
}

template <typename TableType>
void TakeBackLast(TableType& table) {
  if (table.Empty()) return;
  Vacate(table.Last());
  table.DropLast();
}

void TakeBackWaypoint(Editing& editing) {
  Selection& selection = editing.selection;
  const auto& waypoints = editing.document.waypoints;
  if (editing.activity.Is(ActivityKind::kConnection)) {
    editing.activity.Forget();
    return;
  }
  if (selection.waypoints.Empty() && !waypoints.Empty()) {
    selection.waypoints.Append(waypoints.last);
  }
  // Deleting is Edit's: choosing that tool keeps the selection, coming back clears it.
  ChangeTool(editing, ToolMode::kEdit);
  DeleteSelection(editing);
  ChangeTool(editing, ToolMode::kAddWaypoint);
}

void TakeBack(Editing& editing) {
  MapDocument& document = editing.document;
  switch (document.toolIndex) {
    case ToolMode::kAddPolygon:
      if (editing.activity.PlacedCorners() > 0) return TakeBackCorner(editing);
      return TakeBackLast(document.polygons);
    case ToolMode::kAddSpawn:
      return TakeBackLast(document.spawns);
    case ToolMode::kAddScenery:
      editing.activity.Forget();  // a liana without a direction, the last one
      return TakeBackLast(document.sceneries);
    case ToolMode::kAddCollider:
      return TakeBackLast(document.colliders);
    case ToolMode::kAddWaypoint:
      return TakeBackWaypoint(editing);
    case ToolMode::kEdit:
      return;
  }
}

}  // namespace

void MenuDelete(Editing& editing) {
  const bool isEdit = editing.IsTool(ToolMode::kEdit);
  const bool isRefused = isEdit && editing.selection.Empty();
  if (isEdit && !isRefused) EndActivity(editing);
  TakeUndoSnapshot(editing, "Delete");
  if (isRefused) {
    editing.ports.dialogs.Show({.text = "You need select something at first.",
                                .title = "Problem",
                                .icon = MessageIcon::kInformation});
    return;
  }
  if (isEdit) {
    DeleteSelection(editing);
  } else {
    TakeBack(editing);
    DropMissing(editing.selection, editing.document);  // the hovered one may have gone
  }
  RefreshAll(editing);
}

}  // namespace vesmora
