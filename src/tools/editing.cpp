#include "tools/editing.h"

#include "document/snapshot.h"

namespace vesmora {

void TakeUndoSnapshot(Editing& editing, const std::string& actionName) {
  // A triangle that is being built is no part of the map that undo brings back.
  const int unfinished = editing.activity.PlacedCorners() > 0 ? 1 : 0;
  auto& polygons = editing.document.polygons;
  polygons.SetCount(polygons.Count() - unfinished);
  const auto failure =
      FileSnapshot(editing, editing.ports.files, editing.ports.random(), actionName);
  polygons.SetCount(polygons.Count() + unfinished);
  bool& failureTold = editing.journal.failureTold;
  if (failure && !failureTold) {
    editing.ports.dialogs.Show({.text = "File '" + failure->path +
                                        "' could not be written: " + failure->reason +
                                        "\nThe edit goes on, but it cannot be undone.",
                                .title = "File error",
                                .icon = MessageIcon::kExclamation});
  }
  failureTold = failure.has_value();
}

void Refuse(const Editing& editing, const std::string& reason) {
  editing.ports.dialogs.Show({.text = reason, .title = "Problem", .icon = MessageIcon::kCritical});
}

void RefreshInfoPanel(Editing& editing) {
  editing.tool.next.visibility.reset();
  editing.ports.window.PanelChanged();
}

void RedrawMap(const Editing& editing) { editing.ports.window.MapChanged(); }

void RefreshAll(Editing& editing) {
  RefreshInfoPanel(editing);
  RedrawMap(editing);
}

void ClearSelection(Editing& editing) {
  ClearLists(editing.selection);
  editing.selection.box = SelectionBox{};
  editing.selection.moveSnapshotTaken = false;
  editing.activity.Forget();
  editing.pointer = PointerShape::kDefault;
}

void EndActivity(Editing& editing) {
  editing.activity.Finish(editing);
  if (editing.IsTool(ToolMode::kEdit)) SettleBox(editing.selection, editing.document);
}

bool SnapsToGrid(const Editing& editing) { return editing.view.gridSize >= 1 && !editing.ctrlDown; }

WorldPoint PlacedPoint(const Editing& editing, float screenX, float screenY) {
  return SnapsToGrid(editing) ? editing.view.SnapToGrid(screenX, screenY)
                              : editing.view.ToWorld(screenX, screenY);
}

}  // namespace vesmora
