#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/angles.h"
#include "tools/move_selection.h"
#include "tools/picking.h"
#include "tools/tool_handlers.h"

namespace vesmora {
namespace {

/// The scenery that has handles: the selected one, when there is just one.
SceneryObject* SceneryWithHandles(Editing& editing) {
  const auto& listed = editing.selection.sceneries;
  return listed.Count() == 1 ? &editing.document.sceneries[listed[0]] : nullptr;
}

bool IsOnHandle(const SceneryObject& scenery, SceneryHandle handle, WorldPoint point) {
  if (handle == SceneryHandle::kRotate && scenery.type == kLianaType) return false;
  return HandleHitTest(handle, scenery, RoundToInt16(point.x), RoundToInt16(point.y));
}

bool IsStrictlyInside(const SelectionBox& box, WorldPoint point) {
  return box.Complete() && point.x > box.left && point.x < box.right && point.y > box.top &&
         point.y < box.bottom;
}

/// A press beside a selection only deselects when it is released where it is, so
/// the far corner stays unset until the mouse moves.
void BeginBox(SelectionBox& box, WorldPoint point) {
  const bool hadBox = box != SelectionBox{};
  box = {.left = point.x,
         .right = hadBox ? kUnsetCoordinate : point.x,
         .top = point.y,
         .bottom = hadBox ? kUnsetCoordinate : point.y};
}

/// The pointer as seen from a scenery's place.
PolarOffset PullOf(const SceneryObject& scenery, WorldPoint mouse) {
  return OffsetToPolar(mouse.x - scenery.x, mouse.y - scenery.y);
}

void Rotate(SceneryObject& scenery, WorldPoint mouse, bool snaps) {
  const float pulled = PullOf(scenery, mouse).angle;
  const float angle = snaps ? SnapAngle45(pulled) : pulled;
  // A mirrored scenery keeps pointing at the mouse.
  scenery.rotation = scenery.scaleX < 0 ? angle + kPi : angle;
}

void Resize(SceneryObject& scenery, WorldPoint mouse) {
  const SceneryType& type = SceneryTypeOf(scenery.type);
  if (type.width == 0 || type.height == 0) return;  // an unknown type has no size to scale
  const PolarOffset pull = PullOf(scenery, mouse);
  // The mouse as the unrotated scenery sees it.
  const WorldPoint own = PolarToOffset(pull.angle - scenery.rotation, pull.length, false);
  scenery.scaleX = own.x / static_cast<float>(type.width);
  scenery.scaleY = own.y / static_cast<float>(type.height);
}

void Drag(Editing& editing, const MouseInput& input) {
  Selection& selection = editing.selection;
  const ViewTransform& view = editing.view;
  const WorldPoint mouse = view.ToWorld(input.x, input.y);
  SceneryObject* scenery = SceneryWithHandles(editing);
  switch (editing.activity.Kind()) {
    case ActivityKind::kMove:
      MoveSelection(editing, {(input.x - view.lastMouseX) / view.zoom,
                              (input.y - view.lastMouseY) / view.zoom});
      break;
    case ActivityKind::kRotate:
      if (scenery != nullptr) Rotate(*scenery, mouse, editing.shiftDown);
      break;
    case ActivityKind::kResize:
      if (scenery != nullptr) Resize(*scenery, mouse);
      break;
    default:
      selection.box.right = mouse.x;
      selection.box.bottom = mouse.y;
      SelectInBox(editing, selection.box, false, SelectionKind::kAll);
  }
  RedrawMap(editing);
}

/// Tells by the pointer what a press would do.
void ShowPointer(Editing& editing, WorldPoint mouse) {
  const SelectionBox& box = editing.selection.box;
  if (box.Complete() && !editing.activity.HoldsButton()) {
    editing.pointer = IsStrictlyInside(box, mouse) ? PointerShape::kMove : PointerShape::kDefault;
  }
  const SceneryObject* scenery = SceneryWithHandles(editing);
  if (scenery == nullptr) return;
  if (IsOnHandle(*scenery, SceneryHandle::kRotate, mouse)) {
    editing.pointer = PointerShape::kCross;
  } else if (IsOnHandle(*scenery, SceneryHandle::kSize, mouse)) {
    editing.pointer = PointerShape::kSizeDiagonal;
  }
}

void FinishPick(Editing& editing) {
  SelectionBox& box = editing.selection.box;
  if (box.right == kUnsetCoordinate && box.bottom == kUnsetCoordinate) {
    ClearSelection(editing);
    RefreshInfoPanel(editing);
  } else if (box.left != box.right || box.top != box.bottom) {
    SelectInBox(editing, box, false, SelectionKind::kAll);
    // Only now and only once: an edge that changes sides is rounded, and may have changed them
    // back by that.
    box = Normalised(box);
  } else {
    PickAtPoint(editing);
  }
  RedrawMap(editing);
}

}  // namespace

void PressInEdit(Editing& editing, const MouseInput& input) {
  if (editing.activity.Is(ActivityKind::kPlacement)) {
    editing.activity.Finish(editing);  // the click only drops what was placed
    return;
  }
  const WorldPoint mouse = editing.view.ToWorld(input.x, input.y);
  const SceneryObject* scenery = SceneryWithHandles(editing);
  const auto begin = [&editing](ActivityKind kind) { editing.activity.Begin(kind, editing); };
  if (scenery != nullptr && IsOnHandle(*scenery, SceneryHandle::kRotate, mouse)) {
    begin(ActivityKind::kRotate);
    TakeUndoSnapshot(editing, "Rotate");
  } else if (scenery != nullptr && IsOnHandle(*scenery, SceneryHandle::kSize, mouse)) {
    begin(ActivityKind::kResize);
    TakeUndoSnapshot(editing, "Size");
  } else if (IsStrictlyInside(editing.selection.box, mouse)) {
    begin(ActivityKind::kMove);
  } else {
    begin(ActivityKind::kBand);
    BeginBox(editing.selection.box, mouse);
  }
}

void MoveInEdit(Editing& editing, const MouseInput& input) {
  if (editing.activity.Is(ActivityKind::kPlacement)) {
    CarryAlong(editing, input);
    return;
  }
  if (editing.activity.HoldsButton()) Drag(editing, input);
  ShowPointer(editing, editing.view.ToWorld(input.x, input.y));
}

void ReleaseInEdit(Editing& editing) {
  // A release during a placement belongs to a press on something else, a dialog's button perhaps.
  if (!editing.activity.HoldsButton()) return;
  const bool wasBand = editing.activity.Is(ActivityKind::kBand);
  editing.activity.Finish(editing);
  if (wasBand) FinishPick(editing);
}

}  // namespace vesmora
