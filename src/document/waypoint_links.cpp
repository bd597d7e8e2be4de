#include "document/waypoint_links.h"

#include <algorithm>
#include <array>
#include <vector>

namespace vesmora {
namespace {

void Unlink(Waypoint& waypoint, std::int32_t id) {
  auto used = UsedConnections(waypoint);
  auto found = std::ranges::find(used, id);
  while (found != used.end()) {
    std::shift_left(found, used.end(), 1);
    used = used.first(used.size() - 1);
    // The one that has moved down is passed over.
    if (found != used.end()) found = std::find(found + 1, used.end(), id);
  }
  waypoint.connectionCount = static_cast<std::int32_t>(used.size());
}

/// Each in turn by rising number: removing one can bring equal ones together.
void UnlinkDeleted(Waypoint& waypoint, const WaypointSlots& deleted) {
  std::array<std::int32_t, kConnectionCapacity> ids{};
  const auto isDeleted = [&deleted](std::int32_t id) {
    return id >= 1 && id <= kWaypointCapacity && deleted[static_cast<std::size_t>(id - 1)];
  };
  const auto end = std::ranges::copy_if(UsedConnections(waypoint), ids.begin(), isDeleted).out;
  std::sort(ids.begin(), end);
  for (auto id = ids.begin(); id != end; id = std::upper_bound(id, end, *id)) Unlink(waypoint, *id);
}

std::size_t UsedCount(const Waypoint& waypoint) {
  return static_cast<std::size_t>(std::clamp(waypoint.connectionCount, 0, kConnectionCapacity));
}

}  // namespace

std::span<std::int32_t> UsedConnections(Waypoint& waypoint) {
  return std::span(waypoint.connections).first(UsedCount(waypoint));
}

std::span<const std::int32_t> UsedConnections(const Waypoint& waypoint) {
  return std::span(waypoint.connections).first(UsedCount(waypoint));
}

void AddConnection(Waypoint& from, int targetSlot) {
  const std::size_t count = UsedConnections(from).size();
  if (count == from.connections.size()) return;
  from.connections[count] = targetSlot + 1;
  from.connectionCount = static_cast<std::int32_t>(count) + 1;
}

void FollowDeletion(std::span<Waypoint> waypoints, const WaypointSlots& deleted) {
  std::vector<std::int32_t> newIds(waypoints.size());  // a deleted one's goes to what follows
  std::int32_t next = 1;
  for (std::size_t slot = 0; slot < waypoints.size(); ++slot) {
    newIds[slot] = next;
    if (!deleted[slot]) ++next;
  }
  const auto count = static_cast<std::int32_t>(waypoints.size());
  for (std::size_t slot = 0; slot < waypoints.size(); ++slot) {
    if (deleted[slot] && slot + 1 < waypoints.size()) continue;
    Waypoint& waypoint = waypoints[slot];
    UnlinkDeleted(waypoint, deleted);
    for (std::int32_t& id : UsedConnections(waypoint)) {
      if (id >= 1 && id <= count) id = newIds[static_cast<std::size_t>(id - 1)];
    }
  }
}

}  // namespace vesmora
