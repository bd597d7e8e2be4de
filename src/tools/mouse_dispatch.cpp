#include "tools/mouse_dispatch.h"

#include <array>

#include "document/numbers.h"
#include "tools/tool_handlers.h"

namespace vesmora {
namespace {

using MouseHandler = void (*)(Editing& editing, const MouseInput& input);

struct ToolHandlers {
  MouseHandler press;
  MouseHandler move;
};

/// By ToolMode.
constexpr std::array<ToolHandlers, kToolCount> kHandlers = {
    {{PressInEdit, MoveInEdit},
     {PressInAddPolygon, MoveInAddPolygon},
     {PressInAddSpawn, MoveInAddSpawn},
     {PressInAddScenery, MoveInAddScenery},
     {PressInAddCollider, MoveInAddCollider},
     {PressInAddWaypoint, MoveInAddWaypoint}}};

const ToolHandlers& HandlersOf(ToolMode tool) { return kHandlers[static_cast<std::size_t>(tool)]; }

bool Hovers(ToolMode tool) {
  return tool == ToolMode::kAddPolygon || tool == ToolMode::kAddWaypoint;
}

}  // namespace

void PressMouse(Editing& editing, const MouseInput& input) {
  ViewTransform& view = editing.view;
  editing.note.clear();
  view.lastMouseX = input.x;
  view.lastMouseY = input.y;
  if (input.button == MouseButton::kRight) view.panning = true;
  if (input.button == MouseButton::kLeft) {
    HandlersOf(editing.document.toolIndex).press(editing, input);
  }
}

void MoveMouse(Editing& editing, const MouseInput& input) {
  ViewTransform& view = editing.view;
  if (input.rightIsUp) view.panning = false;
  if (input.leftIsUp) ReleaseInEdit(editing);
  // The tools measure drags from the previous position.
  if (!view.panning) {
    editing.tool.hidesNext = false;
    HandlersOf(editing.document.toolIndex).move(editing, input);
  }
  if (TrackMouse(view, input.x, input.y)) RedrawMap(editing);
  // Where the pointer is once the view has moved along.
  editing.tool.mouseX = RoundToInt32(view.LaskeRuutu2X(input.x));
  editing.tool.mouseY = RoundToInt32(view.LaskeRuutu2Y(input.y));
}

void ReleaseMouse(Editing& editing, const MouseInput& input) {
  if (input.button == MouseButton::kRight) editing.view.panning = false;
  if (input.button == MouseButton::kLeft) ReleaseInEdit(editing);
}

void ForgetHover(Editing& editing) {
  if (editing.IsTool(ToolMode::kEdit) && !editing.activity.HoldsButton()) {
    editing.pointer = PointerShape::kDefault;
  }
  if (!Hovers(editing.document.toolIndex) || editing.selection.Empty()) return;
  ClearLists(editing.selection);
  RefreshAll(editing);
}

void CancelGesture(Editing& editing) {
  const bool isEdit = editing.IsTool(ToolMode::kEdit);
  if (editing.activity.Is(ActivityKind::kNone)) {
    if (!isEdit || editing.selection.Empty()) return;
    ClearSelection(editing);
    RefreshAll(editing);
    return;
  }
  editing.activity.Cancel(editing);
  if (isEdit) {
    editing.pointer = PointerShape::kDefault;
  } else {
    ClearLists(editing.selection);  // what was hovered when it began
  }
  RefreshAll(editing);
}

}  // namespace vesmora
