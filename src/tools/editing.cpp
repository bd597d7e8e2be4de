#include "tools/editing.h"

namespace vesmora {

MapFileContext MapFileContextOf(const Editing& editing) {
  return {.document = editing.state.document,
          .selection = editing.state.selection,
          .files = editing.ports.files,
          .dialogs = editing.ports.dialogs,
          .display = editing.ports.display,
          .random = editing.ports.random};
}

void TakeUndoSnapshot(const Editing& editing, const std::string& actionName) {
  TakeUndoSnapshot(editing.state.journal, MapFileContextOf(editing), actionName);
}

void Refuse(const Editing& editing, const std::string& reason) {
  editing.ports.dialogs.Show({.text = reason, .title = "Problem", .icon = MessageIcon::kCritical});
}

void RefreshAll(const Editing& editing) {
  editing.ports.display.RefreshInfoPanel();
  editing.ports.display.RedrawMap();
}

bool SnapsToGrid(const EditingState& state) { return state.view.gridSize >= 1 && !state.ctrlDown; }

WorldPoint PlacedPoint(const EditingState& state, float screenX, float screenY) {
  if (SnapsToGrid(state)) return state.view.SnapToGrid(screenX, screenY);
  return {state.view.LaskeRuutu2X(screenX), state.view.LaskeRuutu2Y(screenY)};
}

}  // namespace vesmora
