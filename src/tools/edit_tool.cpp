#include "tools/edit_tool.h"

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/angles.h"
#include "tools/move_selection.h"
#include "tools/picking.h"
#include "tools/placement.h"

namespace vesmora {
namespace {

struct WorldPosition {
  float x;
  float y;
};

WorldPosition ToWorld(const ViewTransform& view, const MouseInput& input) {
  return {view.LaskeRuutu2X(input.x), view.LaskeRuutu2Y(input.y)};
}

/// The scenery that has handles: the selected one, when there is just one.
SceneryObject* SceneryWithHandles(EditingState& state) {
  if (state.selection.sceneries.Count() != 1) return nullptr;
  return &state.document.sceneries[state.selection.sceneries.Items().front()];
}

bool IsOnHandle(const SceneryObject& scenery, SceneryHandle handle, WorldPosition point) {
  if (handle == SceneryHandle::kRotate && scenery.type == kLianaType) return false;
  return HandleHitTest(handle, scenery, RoundToInt16(point.x), RoundToInt16(point.y));
}

bool IsStrictlyInside(const SelectionBox& box, WorldPosition point) {
  return box.Complete() && point.x > box.left && point.x < box.right && point.y > box.top &&
         point.y < box.bottom;
}

/// A press beside a selection only deselects when it is released where it is, so
/// the far corner stays unset until the mouse moves.
void BeginBox(SelectionBox& box, WorldPosition point) {
  const bool hadBox = box != SelectionBox{};
  box = {.left = point.x,
         .right = hadBox ? kUnsetCoordinate : point.x,
         .top = point.y,
         .bottom = hadBox ? kUnsetCoordinate : point.y};
}

void Rotate(const EditingState& state, SceneryObject& scenery, WorldPosition mouse) {
  float angle = OffsetToPolar(mouse.x - scenery.x, mouse.y - scenery.y).angle;
  if (state.shiftDown) angle = SnapAngle45(angle);
  // A mirrored scenery keeps pointing at the mouse.
  if (scenery.scaleX < 0) angle += kPi;
  scenery.rotation = angle;
}

void Resize(SceneryObject& scenery, WorldPosition mouse) {
  const SceneryType& type = SceneryTypeOf(scenery.type);
  if (type.width == 0 || type.height == 0) return;  // an unknown type has no size to scale
  const PolarOffset pull = OffsetToPolar(mouse.x - scenery.x, mouse.y - scenery.y);
  // The mouse as the unrotated scenery sees it.
  const WorldOffset own = PolarToOffset(pull.angle - scenery.rotation, pull.length, false);
  scenery.scaleX = own.x / static_cast<float>(type.width);
  scenery.scaleY = own.y / static_cast<float>(type.height);
}

void DragSelection(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  const ViewTransform& view = state.view;
  state.selection.box = Normalised(state.selection.box);
  MoveSelection(editing, (input.x - view.lastMouseX) / view.zoom,
                (input.y - view.lastMouseY) / view.zoom);
}

void Drag(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  Selection& selection = state.selection;
  const WorldPosition mouse = ToWorld(state.view, input);
  SceneryObject* scenery = SceneryWithHandles(state);
  if (selection.moving) {
    DragSelection(editing, input);
  } else if (selection.rotating || selection.sizing) {
    if (scenery == nullptr) return;
    if (selection.rotating) {
      Rotate(state, *scenery, mouse);
    } else {
      Resize(*scenery, mouse);
    }
  } else {
    selection.box.right = mouse.x;
    selection.box.bottom = mouse.y;
    SelectInBox(editing, selection.box, false, SelectionKind::kAll);
  }
  editing.ports.display.RedrawMap();
}

/// Tells by the pointer what a press would do.
void ShowPointer(const Editing& editing, WorldPosition mouse) {
  EditingState& state = editing.state;
  const SelectionBox& box = state.selection.box;
  if (box.Complete() && !state.selection.buttonHeld) {
    editing.ports.display.SetPointer(IsStrictlyInside(box, mouse) ? PointerShape::kMove
                                                                  : PointerShape::kDefault);
  }
  const SceneryObject* scenery = SceneryWithHandles(state);
  if (scenery == nullptr) return;
  if (IsOnHandle(*scenery, SceneryHandle::kRotate, mouse)) {
    editing.ports.display.SetPointer(PointerShape::kCross);
  } else if (IsOnHandle(*scenery, SceneryHandle::kSize, mouse)) {
    editing.ports.display.SetPointer(PointerShape::kSizeDiagonal);
  }
}

void FinishPick(const Editing& editing) {
  Selection& selection = editing.state.selection;
  SelectionBox& box = selection.box;
  if (box.right == kUnsetCoordinate && box.bottom == kUnsetCoordinate) {
    ClearSelection(selection, editing.ports.display);
    editing.ports.display.RefreshInfoPanel();
  } else if (box.left != box.right || box.top != box.bottom) {
    box = Normalised(box);
    SelectInBox(editing, box, false, SelectionKind::kAll);
  } else {
    PickAtPoint(editing);
  }
  editing.ports.display.RedrawMap();
}

}  // namespace

void PressInEdit(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  Selection& selection = state.selection;
  if (selection.placing) {
    EndPlacement(state);  // the click only drops what was placed
    return;
  }
  const WorldPosition mouse = ToWorld(state.view, input);
  const SceneryObject* scenery = SceneryWithHandles(state);
  state.gesture.Begin(state);
  EndDrag(selection);
  selection.buttonHeld = true;
  if (scenery != nullptr && IsOnHandle(*scenery, SceneryHandle::kRotate, mouse)) {
    TakeUndoSnapshot(editing, "Rotate");
    selection.rotating = true;
  } else if (scenery != nullptr && IsOnHandle(*scenery, SceneryHandle::kSize, mouse)) {
    TakeUndoSnapshot(editing, "Size");
    selection.sizing = true;
  } else if (IsStrictlyInside(selection.box, mouse)) {
    selection.moving = true;
  } else {
    BeginBox(selection.box, mouse);
  }
}

void MoveInEdit(const Editing& editing, const MouseInput& input) {
  if (editing.state.selection.placing) {
    FollowPointer(editing, input);
    return;
  }
  if (editing.state.selection.buttonHeld) Drag(editing, input);
  ShowPointer(editing, ToWorld(editing.state.view, input));
}

void ReleaseInEdit(const Editing& editing) {
  Selection& selection = editing.state.selection;
  if (selection.placing) return;  // the press was on something else, a dialog's button perhaps
  const bool wasHeld = editing.state.gesture.InProgress();
  editing.state.gesture.End();
  selection.buttonHeld = false;
  if (selection.moving) {
    selection.moving = false;
  } else if (selection.rotating) {
    selection.rotating = false;
  } else if (selection.sizing) {
    selection.sizing = false;
  } else if (wasHeld) {
    FinishPick(editing);
  }
}

}  // namespace vesmora
