#include "tools/gesture.h"

#include "tools/editing.h"
#include "tools/tool_change.h"

namespace vesmora {

void Gesture::Begin(const EditingState& state) {
  if (!kept_) kept_ = std::make_unique<Kept>();
  kept_->document = state.document;
  kept_->selection = state.selection;
  kept_->undoSlot = state.journal.undoSlot;
  inProgress_ = true;
}

void Gesture::LeaveOut(const EditingState& state) {
  if (!inProgress_) return;
  if (state.selection.placing) {
    Begin(state);
    kept_->selection.placing = false;  // Escape ends it
    return;
  }
  // In an Add tool only these can have changed.
  MapDocument& kept = kept_->document;
  const MapDocument& now = state.document;
  if (kept.backgroundColor1 == now.backgroundColor1 &&
      kept.backgroundColor2 == now.backgroundColor2 && now.toolIndex != ToolMode::kEdit) {
    return;
  }
  kept.backgroundColor1 = now.backgroundColor1;
  kept.backgroundColor2 = now.backgroundColor2;
  kept_->undoSlot = state.journal.undoSlot;
  // The new step holds all but a half-built triangle, which is therefore all that may still go.
  inProgress_ = IsConstructing(state);
}

void Gesture::Cancel(EditingState& state) {
  if (!inProgress_) return;
  inProgress_ = false;
  state.document = kept_->document;
  state.selection = kept_->selection;
  UndoJournal& journal = state.journal;
  while (journal.undoSlot != kept_->undoSlot && journal.undoAvailable >= 0) {
    ConsumeUndoStep(journal);
  }
}

}  // namespace vesmora
