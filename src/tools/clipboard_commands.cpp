#include "tools/clipboard_commands.h"

#include <algorithm>
#include <unordered_map>

#include "tools/move_selection.h"
#include "tools/slot.h"
#include "tools/waypoint_links.h"

namespace vesmora {
namespace {

using PolygonSlots = IndexList<std::int16_t, 3 * kPolygonCapacity>;

/// How many of `wanted` records fit behind `last`. One slot of each table stays free.
int Fitting(int wanted, std::int16_t last, int capacity, bool& overflow) {
  const int room = std::max(capacity - 1 - last - 1, 0);
  if (wanted > room) overflow = true;
  return std::min(wanted, room);
}

/// A run of entries of one polygon counts once.
PolygonSlots SelectedPolygons(const Selection& selection) {
  PolygonSlots polygons;
  for (const VertexReference& vertex : selection.vertices.Items()) {
    const auto listed = polygons.Items();
    if (listed.empty() || listed.back() != vertex.polygon) polygons.Add(vertex.polygon);
  }
  return polygons;
}

/// Copies what is listed; the list is cut to what fits.
template <typename Table, typename Copies, typename List>
void CopyRecords(const Table& table, std::int16_t last, Copies& copies, List& list,
                 bool& overflow) {
  const int count = Fitting(list.Count(), last, static_cast<int>(table.size()), overflow);
  list.last = copies.last = static_cast<std::int16_t>(count - 1);
  for (int i = 0; i < count; ++i) {
    SlotAt(copies.records, i) = SlotAt(table, int{SlotAt(list.entries, i)});
  }
}

void CopyPolygons(const MapDocument& document, const Selection& selection, Clipboard& clipboard) {
  PolygonSlots polygons = SelectedPolygons(selection);
  CopyRecords(document.polygons, document.lastPolygon, clipboard.polygons, polygons,
              clipboard.overflow);
  for (int i = 0; i < polygons.Count(); ++i) {
    SlotAt(clipboard.normals, i) = SlotAt(document.normals, int{SlotAt(polygons.entries, i)});
  }
}

void CopyWaypoints(EditingState& state) {
  const MapDocument& document = state.document;
  Clipboard& clipboard = state.clipboard;
  auto& list = state.selection.waypoints;
  CopyRecords(document.waypoints, document.lastWaypoint, clipboard.waypoints, list,
              clipboard.overflow);
  GiveWaypointKeys(state);
  for (int i = 0; i < list.Count(); ++i) {
    SlotAt(clipboard.waypointKeys, i) = SlotAt(state.waypointKeys, int{SlotAt(list.entries, i)});
    auto& targets = SlotAt(clipboard.targetKeys, i);
    std::ranges::transform(UsedConnections(SlotAt(clipboard.waypoints.records, i)), targets.begin(),
                           [&](std::int32_t id) {
                             const bool leads = id >= 1 && id <= document.lastWaypoint + 1;
                             return leads ? SlotAt(state.waypointKeys, id - 1) : 0;
                           });
  }
}

/// Puts copies into the highest slots of a table, downwards from its end.
template <typename Table, typename Records>
void FillTail(Table& table, const Records& records, int count) {
  std::copy_n(records.begin(), count, table.rbegin());
}

void FillTails(MapDocument& document, const Clipboard& clipboard) {
  FillTail(document.polygons, clipboard.polygons.records, clipboard.polygons.Count());
  FillTail(document.normals, clipboard.normals, clipboard.polygons.Count());
  FillTail(document.spawns, clipboard.spawns.records, clipboard.spawns.Count());
  FillTail(document.colliders, clipboard.colliders.records, clipboard.colliders.Count());
  FillTail(document.waypoints, clipboard.waypoints.records, clipboard.waypoints.Count());
  // Sceneries alone lie there in rising order.
  const int sceneries = clipboard.sceneries.Count();
  std::copy_n(clipboard.sceneries.records.begin(), sceneries, document.sceneries.end() - sceneries);
}

/// Adds what fits and lists its slots.
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
  PolygonSlots pasted;
  PasteRecords(document.polygons, document.lastPolygon, clipboard.polygons, pasted,
               clipboard.overflow);
  std::copy_n(clipboard.normals.begin(), pasted.Count(),
              document.normals.begin() + document.lastPolygon + 1 - pasted.Count());
  for (const std::int16_t slot : pasted.Items()) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) {
      state.selection.vertices.Add({slot, corner});
    }
  }
}

/// Where a connection led to a waypoint by its key, it leads there by its id, or is
/// removed when there is none. What led nowhere stays.
void Reconnect(Waypoint& waypoint, const std::array<std::int32_t, kConnectionCapacity>& targetKeys,
               const std::unordered_map<std::int32_t, std::int32_t>& idsByKey) {
  const auto connections = UsedConnections(waypoint);
  std::size_t kept = 0;
  for (std::size_t k = 0; k < connections.size(); ++k) {
    const auto id = idsByKey.find(targetKeys[k]);
    if (targetKeys[k] == 0) {
      connections[kept++] = connections[k];
    } else if (id != idsByKey.end()) {
      connections[kept++] = id->second;
    }
  }
  if (kept < connections.size()) waypoint.connectionCount = static_cast<std::int32_t>(kept);
}

/// Pasted waypoints lead to each other as the copied ones did, and where they led to
/// others, to just those, whatever slots these have moved to.
void PasteWaypoints(EditingState& state) {
  MapDocument& document = state.document;
  Clipboard& clipboard = state.clipboard;
  const int first = document.lastWaypoint + 1;
  PasteRecords(document.waypoints, document.lastWaypoint, clipboard.waypoints,
               state.selection.waypoints, clipboard.overflow);
  std::unordered_map<std::int32_t, std::int32_t> idsByKey;
  for (int slot = 0; slot <= document.lastWaypoint; ++slot) {
    const std::int32_t key = slot < first ? SlotAt(state.waypointKeys, slot)
                                          : SlotAt(clipboard.waypointKeys, slot - first);
    idsByKey[key] = slot + 1;
  }
  for (int slot = first; slot <= document.lastWaypoint; ++slot) {
    Waypoint& waypoint = SlotAt(document.waypoints, slot);
    waypoint.id = slot + 1;
    Reconnect(waypoint, SlotAt(clipboard.targetKeys, slot - first), idsByKey);
  }
}

}  // namespace

void MenuCopy(const Editing& editing) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  Clipboard& clipboard = state.clipboard;
  EndMouseWork(state);
  clipboard.overflow = false;
  CopyPolygons(document, selection, clipboard);
  CopyRecords(document.spawns, document.lastSpawn, clipboard.spawns, selection.spawns,
              clipboard.overflow);
  CopyRecords(document.sceneries, document.lastScenery, clipboard.sceneries, selection.sceneries,
              clipboard.overflow);
  CopyRecords(document.colliders, document.lastCollider, clipboard.colliders, selection.colliders,
              clipboard.overflow);
  CopyWaypoints(state);
  FillTails(document, clipboard);
  clipboard.box = selection.box;
  if (selection.Empty()) selection.box = SelectionBox{};  // the lists may have been cut to nothing
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
  if (selection.Empty()) {  // nothing fitted
    selection.box = SelectionBox{};
    selection.moveSnapshotTaken = false;
  } else {
    selection.box = clipboard.box;
    CenterSelection(editing);
  }
  RefreshAll(editing);
  if (clipboard.overflow) {
    Refuse(editing, "Some of copied objects couldnt be pasted");
    clipboard.overflow = false;
  }
  if (!selection.Empty()) MenuCopy(editing);
}

}  // namespace vesmora
