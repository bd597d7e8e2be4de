#include "tools/clipboard_commands.h"

#include <algorithm>

#include "tools/move_selection.h"
#include "tools/slot.h"
#include "tools/waypoint_links.h"

namespace vesmora {
namespace {

/// How many of `wanted` records fit behind `last`. One slot of each table stays free.
int Fitting(int wanted, std::int16_t last, int capacity, bool& overflow) {
  const int room = std::max(capacity - 1 - last - 1, 0);
  if (wanted > room) overflow = true;
  return std::min(wanted, room);
}

/// A run of entries of one polygon counts once.
IndexList<std::int16_t, 3 * kPolygonCapacity> SelectedPolygons(const Selection& selection) {
  IndexList<std::int16_t, 3 * kPolygonCapacity> polygons;
  for (const VertexReference& vertex : selection.vertices.Items()) {
    const auto listed = polygons.Items();
    if (listed.empty() || listed.back() != vertex.polygon) polygons.Add(vertex.polygon);
  }
  return polygons;
}

template <typename Table, typename Copies, typename List>
void CopyRecords(const Table& table, std::int16_t last, Copies& copies, List& list,
                 bool& overflow) {
  const int count = Fitting(list.Count(), last, static_cast<int>(table.size()), overflow);
  list.last = static_cast<std::int16_t>(count - 1);
  for (int i = 0; i < count; ++i) {
    SlotAt(copies.records, i) = SlotAt(table, int{SlotAt(list.entries, i)});
  }
  copies.last = list.last;
}

void CopyPolygons(const MapDocument& document, const Selection& selection, Clipboard& clipboard) {
  const auto polygons = SelectedPolygons(selection);
  const int count =
      Fitting(polygons.Count(), document.lastPolygon, kPolygonCapacity, clipboard.overflow);
  for (int i = 0; i < count; ++i) {
    const int slot = SlotAt(polygons.entries, i);
    SlotAt(clipboard.polygons.records, i) = SlotAt(document.polygons, slot);
    SlotAt(clipboard.normals, i) = SlotAt(document.normals, slot);
  }
  clipboard.polygons.last = static_cast<std::int16_t>(count - 1);
}

/// Puts the copies into the highest slots of the map's tables.
void FillTail(MapDocument& document, const Clipboard& clipboard,
              const IndexList<std::int16_t, kWaypointCapacity>& waypoints) {
  for (int i = 0; i < clipboard.polygons.Count(); ++i) {
    SlotAt(document.polygons, kPolygonCapacity - 1 - i) = SlotAt(clipboard.polygons.records, i);
    SlotAt(document.normals, kPolygonCapacity - 1 - i) = SlotAt(clipboard.normals, i);
  }
  for (int i = 0; i < clipboard.spawns.Count(); ++i) {
    SlotAt(document.spawns, kSpawnCapacity - 1 - i) = SlotAt(clipboard.spawns.records, i);
  }
  const int firstScenery = kSceneryCapacity - clipboard.sceneries.Count();
  for (int i = 0; i < clipboard.sceneries.Count(); ++i) {
    SlotAt(document.sceneries, firstScenery + i) = SlotAt(clipboard.sceneries.records, i);
  }
  for (int i = 0; i < clipboard.colliders.Count(); ++i) {
    SlotAt(document.colliders, kColliderCapacity - 1 - i) = SlotAt(clipboard.colliders.records, i);
  }
  for (int i = 0; i < waypoints.Count(); ++i) {
    SlotAt(document.waypoints, kWaypointCapacity - 1 - i) =
        SlotAt(document.waypoints, int{SlotAt(waypoints.entries, i)});
  }
}

template <typename Table, typename Copies, typename List>
void PasteRecords(Table& table, std::int16_t& last, const Copies& copies, List& list,
                  bool& overflow) {
  using Index = typename decltype(list.entries)::value_type;
  const int count = Fitting(copies.Count(), last, static_cast<int>(table.size()), overflow);
  for (int i = 0; i < count; ++i) {
    SlotAt(table, ++last) = SlotAt(copies.records, i);
    list.Add(static_cast<Index>(last));
  }
}

void PastePolygons(EditingState& state) {
  MapDocument& document = state.document;
  Clipboard& clipboard = state.clipboard;
  const int count = Fitting(clipboard.polygons.Count(), document.lastPolygon, kPolygonCapacity,
                            clipboard.overflow);
  for (int i = 0; i < count; ++i) {
    const std::int16_t slot = ++document.lastPolygon;
    SlotAt(document.polygons, slot) = SlotAt(clipboard.polygons.records, i);
    SlotAt(document.normals, slot) = SlotAt(clipboard.normals, i);
    for (std::uint8_t corner = 0; corner < 3; ++corner) {
      state.selection.vertices.Add({slot, corner});
    }
  }
}

/// The pasted waypoints lead to each other where the copied ones did; each entry is
/// looked up in the copies, so that none is rewritten twice.
void LinkPasted(MapDocument& document, int first, std::span<const Waypoint> copies) {
  const int pasted = document.lastWaypoint + 1 - first;
  for (int i = 0; i < pasted; ++i) {
    Waypoint& waypoint = SlotAt(document.waypoints, first + i);
    waypoint.id = first + i + 1;
    for (std::int32_t& connection : UsedConnections(waypoint)) {
      const auto target = std::ranges::find(copies, connection, &Waypoint::id);
      if (target == copies.end()) continue;
      const int place = static_cast<int>(target - copies.begin());
      connection = place < pasted ? first + place + 1 : 0;  // 0 names nothing
    }
  }
}

void PasteWaypoints(EditingState& state) {
  const int first = state.document.lastWaypoint + 1;
  PasteRecords(state.document.waypoints, state.document.lastWaypoint, state.clipboard.waypoints,
               state.selection.waypoints, state.clipboard.overflow);
  const auto& copies = state.clipboard.waypoints;
  LinkPasted(state.document, first,
             std::span(copies.records).first(static_cast<std::size_t>(copies.Count())));
}

}  // namespace

void MenuCopy(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  Clipboard& clipboard = state.clipboard;
  clipboard.overflow = false;
  CopyPolygons(document, selection, clipboard);
  CopyRecords(document.spawns, document.lastSpawn, clipboard.spawns, selection.spawns,
              clipboard.overflow);
  CopyRecords(document.sceneries, document.lastScenery, clipboard.sceneries, selection.sceneries,
              clipboard.overflow);
  CopyRecords(document.colliders, document.lastCollider, clipboard.colliders, selection.colliders,
              clipboard.overflow);
  CopyRecords(document.waypoints, document.lastWaypoint, clipboard.waypoints, selection.waypoints,
              clipboard.overflow);
  FillTail(document, clipboard, selection.waypoints);
  clipboard.box = selection.box;
  RefreshAll(editing);
}

void MenuPaste(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  Clipboard& clipboard = state.clipboard;
  if (clipboard.Empty()) return;
  EndMouseWork(state);
  TakeUndoSnapshot(editing, "Paste");
  ClearLists(selection);
  PastePolygons(state);
  PasteRecords(document.spawns, document.lastSpawn, clipboard.spawns, selection.spawns,
               clipboard.overflow);
  PasteRecords(document.sceneries, document.lastScenery, clipboard.sceneries, selection.sceneries,
               clipboard.overflow);
  PasteRecords(document.colliders, document.lastCollider, clipboard.colliders, selection.colliders,
               clipboard.overflow);
  PasteWaypoints(state);
  selection.box = selection.Empty() ? SelectionBox{} : clipboard.box;
  if (!selection.Empty()) CenterSelection(editing);
  RefreshAll(editing);
  if (clipboard.overflow) {
    Refuse(editing, "Some of copied objects couldnt be pasted");
    clipboard.overflow = false;
  }
  if (!selection.Empty()) MenuCopy(editing);
}

}  // namespace vesmora
