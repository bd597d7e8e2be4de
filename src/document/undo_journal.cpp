#include "document/undo_journal.h"

namespace vesmora {

void ConsumeUndoStep(UndoJournal& journal) {
  --journal.undoAvailable;
  journal.undoSlot = static_cast<std::int16_t>((journal.undoSlot + kUndoSteps - 1) % kUndoSteps);
  RefreshUndoCaption(journal);
}

void RefreshUndoCaption(UndoJournal& journal) {
  journal.caption = journal.undoAvailable < 0 ? "&Undo" : "&Undo " + journal.NewestAction();
}

void ClearHistory(UndoJournal& journal) {
  journal.failureTold = false;
  journal.undoAvailable = -1;
  RefreshUndoCaption(journal);
}

}  // namespace vesmora
