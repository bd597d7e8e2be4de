#include "tools/gesture.h"

#include "tools/editing.h"

namespace vesmora {

void Gesture::Begin(const EditingState& state) {
  if (!kept_) kept_ = std::make_unique<Kept>();
  kept_->document = state.document;
  kept_->selection = state.selection;
  kept_->undoSlot = state.journal.undoSlot;
  inProgress_ = true;
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
