#include "document/numbers.h"
#include "document/waypoint_links.h"
#include "tools/picking.h"
#include "tools/tool_handlers.h"

namespace vesmora {
namespace {

void BeginConnection(Editing& editing, int from) {
  if (editing.document.waypoints[from].connectionCount >= kConnectionCapacity) {
    Refuse(editing, "Selected waypoint have max number of connections.");
    return;
  }
  TakeUndoSnapshot(editing, "Waypoint");
  editing.activity.Begin(ActivityKind::kConnection, editing, from);
  RedrawMap(editing);
}

/// `to`: a waypoint, or -1 to give the connection up.
void EndConnection(Editing& editing, int to) {
  if (to != kNoIndex) AddConnection(editing.document.waypoints[editing.activity.Anchor()], to);
  editing.activity.Forget();
  RedrawMap(editing);
}

void Create(Editing& editing, const MouseInput& input) {
  auto& waypoints = editing.document.waypoints;
  if (waypoints.Full()) {
    Refuse(editing, "Max number of waypoints reached.");
    return;
  }
  TakeUndoSnapshot(editing, "Waypoint");
  Waypoint& waypoint = waypoints.TakeSlot();
  waypoint.active = 1;
  waypoint.id = waypoints.last + 1;
  waypoint.x = ToFixedPoint(editing.view.LaskeRuutu2X(input.x));
  waypoint.y = ToFixedPoint(editing.view.LaskeRuutu2Y(input.y));
  waypoint.botSettings = editing.tool.next.botSettings;
  waypoint.path = editing.tool.value;
  waypoint.connectionCount = 0;
  const bool isChain = editing.ctrlDown || editing.shiftDown;
  if (isChain && waypoints.last >= 1) AddConnection(waypoints[waypoints.last - 1], waypoints.last);
  RefreshAll(editing);
}

}  // namespace

void PressInAddWaypoint(Editing& editing, const MouseInput& input) {
  const auto& listed = editing.selection.waypoints;
  const int hovered = listed.Empty() ? kNoIndex : listed[0];
  if (editing.activity.Is(ActivityKind::kConnection)) {
    EndConnection(editing, hovered);
  } else if (hovered != kNoIndex) {
    BeginConnection(editing, hovered);
  } else {
    Create(editing, input);
  }
}

void MoveInAddWaypoint(Editing& editing, const MouseInput& input) {
  const WorldPoint mouse = editing.view.ToWorld(input.x, input.y);
  SelectInBox(editing, HoverBox(editing.view, mouse), false, SelectionKind::kFirstWaypoint);
  const auto& listed = editing.selection.waypoints;
  // The one under the pointer lends its settings to the next one.
  if (!listed.Empty()) {
    editing.tool.next.botSettings = editing.document.waypoints[listed[0]].botSettings;
  }
  RedrawMap(editing);
}

}  // namespace vesmora
