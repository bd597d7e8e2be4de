// Ten steps of undo: before each edit the whole document goes to a file of a
// ring. There is no redo; the undone step's file is simply written over.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "document/map_document.h"

namespace vesmora {

inline constexpr int kUndoSteps = 10;

/// By slot, numbers that tell waypoints apart whatever slots they move to, never given
/// twice. 0: none yet. They are no part of a map or of its files.
using WaypointKeys = std::array<std::int32_t, kWaypointCapacity>;

struct UndoJournal {
  std::int16_t undoAvailable = -1;         // steps that can be undone, minus one
  std::int16_t undoSlot = kUndoSteps - 1;  // ring position of the newest: the first is 0
  std::array<std::string, kUndoSteps + 1> undoFiles;
  std::array<std::string, kUndoSteps + 1> undoActions;
  std::array<WaypointKeys, kUndoSteps> waypointKeys{};  // of each step's map
  std::string caption = "&Undo";                        // of MenuUndo
  std::string folder;                                   // of the snapshot files, with a slash
  bool failureTold = false;                             // until a snapshot succeeds again

  const std::string& NewestAction() const {
    return undoActions[static_cast<std::size_t>(undoSlot)];
  }
  const std::string& NewestFile() const { return undoFiles[static_cast<std::size_t>(undoSlot)]; }
  const WaypointKeys& NewestKeys() const {
    return waypointKeys[static_cast<std::size_t>(undoSlot)];
  }
};

/// Drops the newest step, after it has been undone.
void ConsumeUndoStep(UndoJournal& journal);

void RefreshUndoCaption(UndoJournal& journal);

/// Forgets all steps. Their files stay until the program ends.
void ClearHistory(UndoJournal& journal);

}  // namespace vesmora
