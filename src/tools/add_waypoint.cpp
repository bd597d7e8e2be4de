#include "tools/add_waypoint.h"

#include <algorithm>

#include "document/numbers.h"
#include "tools/picking.h"

namespace vesmora {
namespace {

Waypoint& WaypointAt(MapDocument& document, int slot) {
  return document.waypoints[static_cast<std::size_t>(slot)];
}

/// False, with nothing changed, when `from` has no room. A count that a damaged
/// file left below 0 counts as 0.
bool AddConnection(Waypoint& from, int targetSlot) {
  const int count = std::max(from.connectionCount, 0);
  if (count >= kConnectionCapacity) return false;
  from.connections[static_cast<std::size_t>(count)] = targetSlot + 1;
  from.connectionCount = count + 1;
  return true;
}

void Connect(const Editing& editing, int hovered) {
  EditingState& state = editing.state;
  std::int16_t& anchor = state.selection.connectionAnchor;
  if (anchor != kNoIndex) {
    if (hovered != kNoIndex) AddConnection(WaypointAt(state.document, anchor), hovered);
    anchor = kNoIndex;
    return;
  }
  if (WaypointAt(state.document, hovered).connectionCount >= kConnectionCapacity) {
    Refuse(editing, "Selected waypoint have max number of connections.");
    return;
  }
  TakeUndoSnapshot(editing, "Waypoint");
  anchor = static_cast<std::int16_t>(hovered);
}

void Create(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (document.lastWaypoint >= kWaypointCapacity - 1) {
    Refuse(editing, "Max number of waypoints reached.");
    return;
  }
  TakeUndoSnapshot(editing, "Waypoint");
  const int slot = ++document.lastWaypoint;
  Waypoint& waypoint = WaypointAt(document, slot);
  waypoint.active = 1;
  waypoint.id = slot + 1;
  waypoint.x = ToFixedPoint(state.view.LaskeRuutu2X(input.x));
  waypoint.y = ToFixedPoint(state.view.LaskeRuutu2Y(input.y));
  waypoint.botSettings = state.tool.next.botSettings;
  waypoint.path = state.tool.value;
  waypoint.connectionCount = 0;
  const bool isChain = state.ctrlDown || state.shiftDown;
  if (isChain && slot >= 1) AddConnection(WaypointAt(document, slot - 1), slot);
  RefreshAll(editing);
}

}  // namespace

void PressInAddWaypoint(const Editing& editing, const MouseInput& input) {
  const Selection& selection = editing.state.selection;
  const int hovered = selection.waypoints.Empty() ? kNoIndex : selection.waypoints.Items().front();
  if (hovered == kNoIndex && selection.connectionAnchor == kNoIndex) {
    Create(editing, input);
    return;
  }
  Connect(editing, hovered);
  editing.ports.display.RedrawMap();
}

void MoveInAddWaypoint(const Editing& editing, const MouseInput& input) {
  const ViewTransform& view = editing.state.view;
  const float x = view.LaskeRuutu2X(input.x);
  const float y = view.LaskeRuutu2Y(input.y);
  const float reach = HoverReach(view);
  SelectInBox(editing,
              {.left = x - reach, .right = x + reach, .top = y - reach, .bottom = y + reach}, false,
              SelectionKind::kFirstWaypoint);
  editing.ports.display.RedrawMap();
}

}  // namespace vesmora
