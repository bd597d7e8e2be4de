#include "tools/editing.h"

#include "tools/picking.h"
#include "tools/slot.h"
#include "tools/tool_change.h"
#include "tools/waypoint_links.h"

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
  GiveWaypointKeys(editing.state);
  // A triangle that is being built is no part of the map that undo brings back.
  const std::int16_t unfinished = IsConstructing(editing.state) ? 1 : 0;
  std::int16_t& lastPolygon = editing.state.document.lastPolygon;
  lastPolygon = static_cast<std::int16_t>(lastPolygon - unfinished);
  UndoJournal& journal = editing.state.journal;
  if (TakeUndoSnapshot(journal, MapFileContextOf(editing), actionName)) {
    SlotAt(journal.waypointKeys, journal.undoSlot) = editing.state.waypointKeys;
  }
  lastPolygon = static_cast<std::int16_t>(lastPolygon + unfinished);
}

void Refuse(const Editing& editing, const std::string& reason) {
  editing.ports.dialogs.Show({.text = reason, .title = "Problem", .icon = MessageIcon::kCritical});
}

void RefreshAll(const Editing& editing) {
  editing.ports.display.RefreshInfoPanel();
  editing.ports.display.RedrawMap();
}

void EndMouseWork(EditingState& state) {
  if (state.document.toolIndex != ToolMode::kEdit) return;
  Selection& selection = state.selection;
  EndDrag(selection);
  state.gesture.End();
  // A rubber band that was still drawn becomes a box to work about, or goes.
  CompleteSelectionBox(selection, state.document);
  selection.box = selection.Empty() ? SelectionBox{} : Normalised(selection.box);
}

bool SnapsToGrid(const EditingState& state) { return state.view.gridSize >= 1 && !state.ctrlDown; }

WorldPoint PlacedPoint(const EditingState& state, float screenX, float screenY) {
  if (SnapsToGrid(state)) return state.view.SnapToGrid(screenX, screenY);
  return {state.view.LaskeRuutu2X(screenX), state.view.LaskeRuutu2Y(screenY)};
}

}  // namespace vesmora
