#include "tools/placement.h"

#include "tools/move_selection.h"

namespace vesmora {

void BeginPlacement(const Editing& editing) {
  EditingState& state = editing.state;
  CenterSelection(editing);
  state.gesture.Begin(state);
  state.selection.placing = true;
}

void FollowPointer(const Editing& editing, const MouseInput& input) {
  const ViewTransform& view = editing.state.view;
  const SelectionBox& box = editing.state.selection.box;
  MoveSelection(editing, view.LaskeRuutu2X(input.x) - (box.left + box.right) / 2,
                view.LaskeRuutu2Y(input.y) - (box.top + box.bottom) / 2);
  editing.ports.display.RedrawMap();
}

void EndPlacement(EditingState& state) {
  if (!state.selection.placing) return;
  state.selection.placing = false;
  state.gesture.End();
}

}  // namespace vesmora
