#include "document/undo_journal.h"

#include <algorithm>

namespace vesmora {

void ConsumeUndoStep(UndoJournal& journal) {
  --journal.undoAvailable;
  journal.undoSlot = static_cast<std::int16_t>((journal.undoSlot + kUndoSteps - 1) % kUndoSteps);
  RefreshUndoCaption(journal);
}

void MoveStepToRedo(UndoJournal& journal, const WaypointKeys& keys) {
  journal.redoKeys[static_cast<std::size_t>(journal.undoSlot)] = keys;
  ++journal.redoAvailable;
  ConsumeUndoStep(journal);
}

void BringBackUndoStep(UndoJournal& journal) {
  --journal.redoAvailable;
  ++journal.undoAvailable;
  journal.undoSlot = static_cast<std::int16_t>(journal.NextSlot());
  RefreshUndoCaption(journal);
}

void AddUndoStep(UndoJournal& journal, const std::string& file, const std::string& actionName,
                 const WaypointKeys& keys) {
  const std::size_t slot = journal.NextSlot();
  journal.undoFiles[slot] = file;
  journal.undoActions[slot] = actionName;
  journal.waypointKeys[slot] = keys;
  journal.undoSlot = static_cast<std::int16_t>(slot);
  journal.undoAvailable =
      static_cast<std::int16_t>(std::min(journal.undoAvailable + 1, kUndoSteps - 1));
  RefreshUndoCaption(journal);
}

void ForgetRedo(UndoJournal& journal) {
  journal.redoAvailable = -1;
  journal.redoCaption = "&Redo";
}

void RefreshUndoCaption(UndoJournal& journal) {
  journal.caption = journal.undoAvailable < 0 ? "&Undo" : "&Undo " + journal.NewestAction();
  const bool canRedo = journal.redoAvailable >= 0;
  journal.redoCaption = canRedo ? "&Redo " + journal.undoActions[journal.NextSlot()] : "&Redo";
}

void ClearHistory(UndoJournal& journal) {
  journal.failureTold = false;
  journal.undoAvailable = -1;
  journal.redoAvailable = -1;
  RefreshUndoCaption(journal);
}

}  // namespace vesmora
