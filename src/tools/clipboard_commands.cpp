#include <algorithm>
#include <unordered_map>

#include "document/waypoint_links.h"
#include "tools/edit_commands.h"
#include "tools/move_selection.h"

namespace vesmora {
namespace {

/// How many of `wanted` records the table takes. One slot of each stays free.
template <typename TableType>
int Fitting(int wanted, const TableType& table, bool& overflow) {
  const int room = std::max(TableType::kCapacity - 1 - table.Count(), 0);
  if (wanted > room) overflow = true;
  return std::min(wanted, room);
}

/// Copies what is listed; the list is cut to what fits.
template <typename TableType, typename List>
void CopyRecords(const TableType& table, TableType& copies, List& list, bool& overflow) {
  list.SetCount(Fitting(list.Count(), table, overflow));
  copies.Clear();
  for (const int slot : list.Used()) copies.Append(table[slot]);
}

/// Puts copies into the highest slots of the map's tables, downwards from their ends.
void FillTails(MapDocument& document, const Clipboard& clipboard) {
  const auto fill = [](auto& table, const auto& copies) {
    std::ranges::copy(copies.Used(), table.slots.rbegin());
  };
  fill(document.polygons, clipboard.polygons);
  fill(document.spawns, clipboard.spawns);
  fill(document.colliders, clipboard.colliders);
  fill(document.waypoints, clipboard.waypoints);
  // Sceneries alone lie there in rising order.
  const auto sceneries = clipboard.sceneries.Used();
  std::ranges::copy(sceneries, document.sceneries.slots.end() - std::ssize(sceneries));
}

/// Notes which waypoints were copied and where their connections led.
void CopyKeys(Editing& editing) {
  Clipboard& clipboard = editing.clipboard;
  GiveWaypointKeys(editing);
  const auto keyOf = [&](int slot) { return editing.waypointKeys[static_cast<std::size_t>(slot)]; };
  std::size_t copy = 0;
  for (const int slot : editing.selection.waypoints.Used()) {
    clipboard.waypointKeys[copy] = keyOf(slot);
    std::ranges::transform(UsedConnections(clipboard.waypoints.slots[copy]),
                           clipboard.targetKeys[copy].begin(), [&](std::int32_t id) {
                             return editing.document.waypoints.Has(id - 1) ? keyOf(id - 1) : 0;
                           });
    ++copy;
  }
}

/// Adds what fits and lists it.
template <typename TableType, typename List>
void PasteRecords(TableType& table, const TableType& copies, List& list, bool& overflow) {
  const int first = table.Count();
  const int count = Fitting(copies.Count(), table, overflow);
  for (const auto& copy : copies.Used().first(static_cast<std::size_t>(count))) table.Append(copy);
  ListFrom(first, table, list);
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
void ReconnectPasted(Editing& editing, int first) {
  auto& waypoints = editing.document.waypoints;
  const Clipboard& clipboard = editing.clipboard;
  std::unordered_map<std::int32_t, std::int32_t> idsByKey;
  for (int slot = 0; slot < waypoints.Count(); ++slot) {
    const auto& keys = slot < first ? editing.waypointKeys : clipboard.waypointKeys;
    idsByKey[keys[static_cast<std::size_t>(slot < first ? slot : slot - first)]] = slot + 1;
  }
  for (int slot = first; slot < waypoints.Count(); ++slot) {
    waypoints[slot].id = slot + 1;
    Reconnect(waypoints[slot], clipboard.targetKeys[static_cast<std::size_t>(slot - first)],
              idsByKey);
  }
}

std::string CountText(const Clipboard& clipboard) {
  return std::to_string(clipboard.Count()) + (clipboard.Count() == 1 ? " object" : " objects");
}

}  // namespace

void MenuCopy(Editing& editing) {
  const MapDocument& document = editing.document;
  Selection& selection = editing.selection;
  Clipboard& clipboard = editing.clipboard;
  bool& overflow = clipboard.overflow;
  EndActivity(editing);
  RequireBox(editing);
  overflow = false;
  PolygonSlots polygons = SelectedPolygons(selection);
  CopyRecords(document.polygons, clipboard.polygons, polygons, overflow);
  CopyRecords(document.spawns, clipboard.spawns, selection.spawns, overflow);
  CopyRecords(document.sceneries, clipboard.sceneries, selection.sceneries, overflow);
  CopyRecords(document.colliders, clipboard.colliders, selection.colliders, overflow);
  CopyRecords(document.waypoints, clipboard.waypoints, selection.waypoints, overflow);
  CopyKeys(editing);
  FillTails(editing.document, clipboard);
  clipboard.box = selection.box;
  if (selection.Empty()) Deselect(selection);  // the lists may have been cut to nothing
  RefreshAll(editing);
  if (!clipboard.Empty()) editing.note = "Copied " + CountText(clipboard);
}

void MenuPaste(Editing& editing) {
  MapDocument& document = editing.document;
  Selection& selection = editing.selection;
  Clipboard& clipboard = editing.clipboard;
  bool& overflow = clipboard.overflow;
  if (clipboard.Empty()) return;
  EndActivity(editing);
  TakeUndoSnapshot(editing, "Paste");
  ClearLists(selection);
  const int firstWaypoint = document.waypoints.Count();
  PasteRecords(document.polygons, clipboard.polygons, selection.vertices, overflow);
  PasteRecords(document.spawns, clipboard.spawns, selection.spawns, overflow);
  PasteRecords(document.sceneries, clipboard.sceneries, selection.sceneries, overflow);
  PasteRecords(document.colliders, clipboard.colliders, selection.colliders, overflow);
  PasteRecords(document.waypoints, clipboard.waypoints, selection.waypoints, overflow);
  ReconnectPasted(editing, firstWaypoint);
  if (selection.Empty()) {  // nothing fitted
    Deselect(selection);
  } else {
    selection.box = clipboard.box;
    CenterSelection(editing);
  }
  RefreshAll(editing);
  if (overflow) {
    Refuse(editing, "Some of copied objects couldnt be pasted");
    overflow = false;
  }
  if (selection.Empty()) return;
  MenuCopy(editing);
  editing.note = "Pasted " + CountText(clipboard);
}

}  // namespace vesmora
