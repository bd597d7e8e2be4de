#include "tools/waypoint_links.h"

#include <algorithm>

namespace vesmora {

std::span<std::int32_t> UsedConnections(Waypoint& waypoint) {
  const int count = std::clamp(waypoint.connectionCount, 0, kConnectionCapacity);
  return std::span(waypoint.connections).first(static_cast<std::size_t>(count));
}

void Unlink(Waypoint& waypoint, std::int32_t id) {
  for (std::size_t k = 0; k < UsedConnections(waypoint).size(); ++k) {
    const auto used = UsedConnections(waypoint);
    if (used[k] != id) continue;
    std::shift_left(used.begin() + static_cast<std::ptrdiff_t>(k), used.end(), 1);
    waypoint.connectionCount = static_cast<std::int32_t>(used.size()) - 1;
  }
}

void Redirect(std::span<Waypoint> waypoints, std::int32_t from, std::int32_t to) {
  for (Waypoint& waypoint : waypoints) std::ranges::replace(UsedConnections(waypoint), from, to);
}

}  // namespace vesmora
