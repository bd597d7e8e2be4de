#include "tools/editing.h"

namespace vesmora {

void TakeUndoSnapshot(Editing& editing, const std::string& actionName) {
  const auto failure = WithoutTriangle(editing, [&] {
    return FileSnapshot(editing, editing.ports.files, editing.ports.random(), actionName);
  });
  TellSnapshotFailure(editing, failure, "The edit goes on, but it cannot be undone.");
}

void TellSnapshotFailure(Editing& editing, const std::optional<SnapshotFailure>& failure,
                         const std::string& consequence) {
  bool& failureTold = editing.journal.failureTold;
  if (failure && !failureTold) {
    editing.ports.dialogs.Show({.text = "File '" + failure->path + "' could not be written: " +
                                        failure->reason + "\n" + consequence,
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
  Deselect(editing.selection);
  editing.activity.Forget();
  editing.pointer = PointerShape::kDefault;
}

void EndActivity(Editing& editing) {
  const bool wasBand = editing.activity.Is(ActivityKind::kBand);
  editing.activity.Finish(editing);
  if (!wasBand) return;
  SelectionBox& box = editing.selection.box;
  if (editing.selection.Empty()) {
    box = SelectionBox{};
  } else {
    RequireBox(editing);  // the press alone has set only its first corner
    box = Normalised(box);
  }
}

void RequireBox(Editing& editing) {
  Selection& selection = editing.selection;
  if (!selection.box.Complete()) UpdateSelectionBox(selection, editing.document);
}

bool SnapsToGrid(const Editing& editing) { return editing.view.gridSize >= 1 && !editing.ctrlDown; }

WorldPoint PlacedPoint(const Editing& editing, float screenX, float screenY) {
  return SnapsToGrid(editing) ? editing.view.SnapToGrid(screenX, screenY)
                              : editing.view.ToWorld(screenX, screenY);
}

}  // namespace vesmora
