// Ten steps of undo: before each edit the whole document goes to a file of a ring. What an undo
// has taken back can be had again until the next edit.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "document/map_document.h"
#include "platform/temp_folder.h"

namespace vesmora {

inline constexpr int kUndoSteps = 10;

/// By slot, numbers that tell waypoints apart whatever slots they move to, never given
/// twice. 0: none yet. They are no part of a map or of its files.
using WaypointKeys = std::array<std::int32_t, kWaypointCapacity>;

struct UndoJournal {
  std::int16_t undoAvailable = -1;         // steps that can be undone, minus one
  std::int16_t undoSlot = kUndoSteps - 1;  // ring position of the newest: the first is 0
  std::int16_t redoAvailable = -1;         // steps in the slots behind it, undone, minus one
  std::array<std::string, kUndoSteps + 1> undoFiles;
  std::array<std::string, kUndoSteps + 1> undoActions;
  std::array<WaypointKeys, kUndoSteps> waypointKeys{};  // of each step's map
  std::array<WaypointKeys, kUndoSteps> redoKeys{};      // of the map before the step was undone
  std::string caption = "&Undo";                        // of MenuUndo
  std::string redoCaption = "&Redo";                    // of MenuRedo
  UndoFolder folder;                                    // of the files
  std::int32_t sequence = 0;                            // of the newest file, see UndoMark
  bool failureTold = false;                             // until a file succeeds again
  bool undoneKept = false;  // for Recover, as it cannot be redone; until the next step

  const std::string& NewestAction() const {
    return undoActions[static_cast<std::size_t>(undoSlot)];
  }
  const std::string& NewestFile() const { return undoFiles[static_cast<std::size_t>(undoSlot)]; }
  const WaypointKeys& NewestKeys() const {
    return waypointKeys[static_cast<std::size_t>(undoSlot)];
  }
  /// Where the next step goes, and where the last undone one is.
  std::size_t NextSlot() const { return static_cast<std::size_t>((undoSlot + 1) % kUndoSteps); }
};

/// Drops the newest step, after it has been undone.
void ConsumeUndoStep(UndoJournal& journal);

/// The same for one that can be had again: the map as it was before, with `keys`, has been filed.
void MoveStepToRedo(UndoJournal& journal, const WaypointKeys& keys);

/// The last step that was undone, while there is one, is the newest again.
void BringBackUndoStep(UndoJournal& journal);

/// Adds a step, whose file has been written, to the next slot.
void AddUndoStep(UndoJournal& journal, const std::string& file, const std::string& actionName,
                 const WaypointKeys& keys);

/// After an edit there is nothing to have again.
void ForgetRedo(UndoJournal& journal);

void RefreshUndoCaption(UndoJournal& journal);

/// Forgets all steps, undone ones too. Their files stay until the program ends.
void ClearHistory(UndoJournal& journal);

}  // namespace vesmora
