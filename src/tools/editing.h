// What the tools and edit commands work on and with.
#pragma once

#include <string>

#include "document/map_file.h"
#include "document/undo_journal.h"
#include "tools/clipboard.h"
#include "tools/gesture.h"
#include "tools/tool_state.h"
#include "view/show_options.h"
#include "view/view_transform.h"

namespace vesmora {

struct EditingState {
  MapDocument document;
  Selection selection;
  ViewTransform view;
  ShowOptions show;
  ToolState tool;
  UndoJournal journal;
  Gesture gesture;
  Clipboard clipboard;
  WaypointKeys waypointKeys{};
  std::int32_t newestWaypointKey = 0;
  bool shiftDown = false;  // as last seen by the window's key events
  bool ctrlDown = false;
};

struct EditingPorts {
  FileCalls& files;
  Dialogs& dialogs;
  Display& display;
  RandomSource random;
};

struct Editing {
  EditingState& state;
  const EditingPorts& ports;
};

MapFileContext MapFileContextOf(const Editing& editing);

/// Files the map as it is under the name of the edit that is about to happen.
void TakeUndoSnapshot(const Editing& editing, const std::string& actionName);

/// Tells why a command does nothing.
void Refuse(const Editing& editing, const std::string& reason);

/// Panel first, then the map.
void RefreshAll(const Editing& editing);

/// Ends a drag or a placement where it is: a command has come in between.
void EndMouseWork(EditingState& state);

/// Whether placed points stick to the grid now.
bool SnapsToGrid(const EditingState& state);

/// The world point that a press at this window position places.
WorldPoint PlacedPoint(const EditingState& state, float screenX, float screenY);

}  // namespace vesmora
