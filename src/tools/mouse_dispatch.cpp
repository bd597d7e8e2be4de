#include "tools/mouse_dispatch.h"

#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/add_objects.h"
#include "tools/add_polygon.h"
#include "tools/add_waypoint.h"
#include "tools/edit_tool.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using MouseHandler = void (*)(const Editing& editing, const MouseInput& input);

struct ToolHandlers {
  MouseHandler press;
  MouseHandler move;
};

ToolHandlers HandlersOf(ToolMode tool) {
  switch (tool) {
    case ToolMode::kAddPolygon:
      return {PressInAddPolygon, MoveInAddPolygon};
    case ToolMode::kAddSpawn:
      return {PressInAddSpawn, MoveInAddSpawn};
    case ToolMode::kAddScenery:
      return {PressInAddScenery, MoveInAddScenery};
    case ToolMode::kAddCollider:
      return {PressInAddCollider, MoveInAddCollider};
    case ToolMode::kAddWaypoint:
      return {PressInAddWaypoint, MoveInAddWaypoint};
    case ToolMode::kEdit:
      break;
  }
  return {PressInEdit, MoveInEdit};
}

bool Hovers(ToolMode tool) {
  return tool == ToolMode::kAddPolygon || tool == ToolMode::kAddWaypoint;
}

}  // namespace

void PressMouse(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  state.view.lastMouseX = input.x;
  state.view.lastMouseY = input.y;
  if (input.button == MouseButton::kRight) state.view.panning = true;
  if (input.button == MouseButton::kLeft)
    HandlersOf(state.document.toolIndex).press(editing, input);
}

void MoveMouse(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  if (input.rightIsUp) state.view.panning = false;
  if (input.leftIsUp && state.selection.buttonHeld) ReleaseInEdit(editing);
  state.tool.mouseX = RoundToInt32(state.view.LaskeRuutu2X(input.x));
  state.tool.mouseY = RoundToInt32(state.view.LaskeRuutu2Y(input.y));
  // The tools measure drags from the previous position.
  if (!state.view.panning) HandlersOf(state.document.toolIndex).move(editing, input);
  if (TrackMouse(state.view, input.x, input.y)) editing.ports.display.RedrawMap();
}

void ReleaseMouse(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  if (input.button == MouseButton::kRight) state.view.panning = false;
  const bool isEdit = state.document.toolIndex == ToolMode::kEdit;
  if (input.button == MouseButton::kLeft && isEdit) ReleaseInEdit(editing);
}

void ForgetHover(const Editing& editing) {
  EditingState& state = editing.state;
  if (state.document.toolIndex == ToolMode::kEdit && !state.selection.buttonHeld) {
    editing.ports.display.SetPointer(PointerShape::kDefault);
  }
  if (!Hovers(state.document.toolIndex) || state.selection.Empty()) return;
  ClearLists(state.selection);
  RefreshAll(editing);
}

void CancelGesture(const Editing& editing) {
  EditingState& state = editing.state;
  const bool hasAnchor = state.selection.connectionAnchor != kNoIndex;
  if (!state.gesture.InProgress() && !hasAnchor) return;
  state.gesture.Cancel(state);
  state.selection.connectionAnchor = kNoIndex;
  if (state.document.toolIndex == ToolMode::kEdit) {
    editing.ports.display.SetPointer(PointerShape::kDefault);
  } else {
    ClearLists(state.selection);  // what was hovered when the gesture began
  }
  // What is chosen for the next object stays chosen.
  if (state.document.toolIndex == ToolMode::kAddPolygon) state.tool.value = 0;
  if (state.tool.value == kNoToolValue) state.tool.value = kLianaType;
  RefreshAll(editing);
}

}  // namespace vesmora
