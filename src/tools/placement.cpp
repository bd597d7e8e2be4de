#include "tools/placement.h"

#include "tools/move_selection.h"

namespace vesmora {

void BeginPlacement(Editing& editing) {
  CenterSelection(editing);
  editing.activity.Begin(ActivityKind::kPlacement, editing);
}

void CarryAlong(Editing& editing, const MouseInput& input) {
  const WorldPoint mouse = editing.view.ToWorld(input.x, input.y);
  const WorldPoint center = editing.selection.box.Center();
  MoveSelection(editing, {mouse.x - center.x, mouse.y - center.y});
  RedrawMap(editing);
}

}  // namespace vesmora
