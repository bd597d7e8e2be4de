// Connections between waypoints. They go by id, which is slot + 1, and are kept right
// when waypoints come, go and move to other slots.
#pragma once

#include <bitset>
#include <cstdint>
#include <span>

#include "document/map_document.h"

namespace vesmora {

using WaypointSlots = std::bitset<kWaypointCapacity>;

/// The connections that count: a damaged count is cut to what the record holds.
std::span<std::int32_t> UsedConnections(Waypoint& waypoint);
std::span<const std::int32_t> UsedConnections(const Waypoint& waypoint);

/// Does nothing when `from` has no room.
void AddConnection(Waypoint& from, int targetSlot);

/// Removes the connections to `deleted` slots and renumbers the others as if those slots
/// were closed up. Of two equal ones next to each other the second stays, as it always
/// did, and leads to what follows the deleted one. The deleted records themselves are left as they
/// are, but the last of all, which stays behind in the places that become free.
void FollowDeletion(std::span<Waypoint> waypoints, const WaypointSlots& deleted);

}  // namespace vesmora
