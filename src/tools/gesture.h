// What Escape goes back to: the map as it was before the drag, the handle's pull
// or the construction that is in progress.
#pragma once

#include <cstdint>
#include <memory>

#include "document/map_document.h"
#include "document/selection.h"
#include "document/undo_journal.h"

namespace vesmora {

struct EditingState;

class Gesture {
 public:
  /// Keeps the state as it is now; a gesture that was in progress is forgotten.
  void Begin(const EditingState& state);
  void End() { inProgress_ = false; }
  /// What another control has just changed stays, with its undo steps, when the gesture
  /// that goes on is cancelled.
  void LeaveOut(const EditingState& state);
  bool InProgress() const { return inProgress_; }

  /// Puts document and selection back, drops the undo steps that were taken since,
  /// and ends the gesture.
  void Cancel(EditingState& state);

 private:
  struct Kept {
    MapDocument document;
    Selection selection;
    std::int16_t undoSlot = 0;
  };

  std::unique_ptr<Kept> kept_;  // made once, at the first gesture
  bool inProgress_ = false;
};

}  // namespace vesmora
