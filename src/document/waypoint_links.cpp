#include "document/waypoint_links.h"

#include <algorithm>
#include <vector>

namespace vesmora {
namespace {

void Unlink(Waypoint& waypoint, std::int32_t id) {
  for (std::size_t k = 0; k < UsedConnections(waypoint).size(); ++k) {
    const auto used = UsedConnections(waypoint);
    if (used[k] != id) continue;
    std::shift_left(used.begin() + static_cast<std::ptrdiff_t>(k), used.end(), 1);
    waypoint.connectionCount = static_cast<std::int32_t>(used.size()) - 1;
  }
}

/// Each in turn by rising number: removing one can bring equal ones together.
void UnlinkDeleted(Waypoint& waypoint, const WaypointSlots& deleted) {
  const auto used = UsedConnections(waypoint);
  std::vector<std::int32_t> ids(used.begin(), used.end());
  std::erase_if(ids, [&deleted](std::int32_t id) {
    return id < 1 || id > kWaypointCapacity || !deleted[static_cast<std::size_t>(id - 1)];
  });
  std::ranges::sort(ids);
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  for (const std::int32_t id : ids) Unlink(waypoint, id);
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
  for (Waypoint& waypoint : waypoints) {
    UnlinkDeleted(waypoint, deleted);
    for (std::int32_t& id : UsedConnections(waypoint)) {
      if (id >= 1 && id <= count) id = newIds[static_cast<std::size_t>(id - 1)];
    }
  }
}

}  // namespace vesmora
