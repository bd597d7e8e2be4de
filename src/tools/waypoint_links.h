// Connections between waypoints by id, kept right when waypoints come, go and move
// to other slots.
#pragma once

#include <span>

#include "document/map_document.h"

namespace vesmora {

/// The connections that count: a damaged count is cut to what the record holds.
std::span<std::int32_t> UsedConnections(Waypoint& waypoint);

/// Removes connections to `id`. Of two equal ones next to each other the second
/// stays, as it always did.
void Unlink(Waypoint& waypoint, std::int32_t id);

/// Makes every connection to the id `from` lead to the id `to`.
void Redirect(std::span<Waypoint> waypoints, std::int32_t from, std::int32_t to);

}  // namespace vesmora
