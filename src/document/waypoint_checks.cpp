#include <algorithm>
#include <set>

#include "document/finding_list.h"
#include "document/value_checks.h"
#include "document/waypoint_links.h"

namespace vesmora {
namespace {

/// Notes in `reached` where the connections lead.
void CheckConnections(const MapDocument& document, int slot, WaypointSlots& reached,
                      FindingList& findings) {
  const Waypoint& waypoint = document.waypoints[slot];
  const ObjectReference object{ObjectKind::kWaypoint, slot};
  const WorldPoint place = PlaceOf(waypoint);
  const bool isPossible =
      waypoint.connectionCount >= 0 && waypoint.connectionCount <= kConnectionCapacity;
  if (!isPossible) {
    findings.Error("connection-count", object, place,
                   "names " + std::to_string(waypoint.connectionCount) + " connections");
  }
  WaypointSlots seen;
  std::set<std::int32_t> told;  // one line a target, however often it comes
  for (const std::int32_t id : UsedConnections(waypoint)) {
    if (id == 0 && !isPossible) continue;  // an unused place of the record
    const int target = std::max(id, 0) - 1;
    if (!document.waypoints.Has(target)) {
      if (!told.insert(id).second) continue;
      findings.Error("connection-target", object, place,
                     "leads to waypoint " + std::to_string(id) + ", which is not there");
      continue;
    }
    const auto bit = static_cast<std::size_t>(target);
    if (target == slot) {
      if (told.insert(id).second) {
        findings.Hint("connection-self", object, place, "leads to itself");
      }
    } else {
      if (seen[bit] && told.insert(id).second) {
        findings.Hint("connection-twice", object, place,
                      "leads more than once to waypoint " + std::to_string(id));
      }
      reached.set(bit);
    }
    seen.set(bit);
  }
}

void CheckValues(const Waypoint& waypoint, const ObjectReference& object, FindingList& findings) {
  const WorldPoint place = PlaceOf(waypoint);
  CheckPlace(findings, object, place);
  if (waypoint.id != object.slot + 1) {
    findings.Error("waypoint-number", object, place,
                   "calls itself waypoint " + std::to_string(waypoint.id));
  }
  if (waypoint.path != 1 && waypoint.path != 2) {
    findings.Error("waypoint-path", object, place,
                   "is on the unknown path " + std::to_string(waypoint.path));
  }
  if (std::ranges::any_of(waypoint.botSettings, [](std::uint8_t value) { return value > 1; })) {
    findings.Error("bot-setting", object, place, "has a bot setting that is neither on nor off");
  }
}

}  // namespace

void CheckWaypoints(const MapDocument& document, FindingList& findings) {
  const auto& waypoints = document.waypoints;
  WaypointSlots reached;
  for (int slot = 0; slot <= waypoints.last; ++slot) {
    CheckValues(waypoints[slot], {ObjectKind::kWaypoint, slot}, findings);
    CheckConnections(document, slot, reached, findings);
  }
  for (int slot = 0; slot <= waypoints.last; ++slot) {
    if (reached[static_cast<std::size_t>(slot)]) continue;
    findings.Hint("waypoint-unreached", {ObjectKind::kWaypoint, slot}, PlaceOf(waypoints[slot]),
                  "no other waypoint leads here");
  }
}

}  // namespace vesmora
