// What the tools and edit commands work on and with.
#pragma once

#include <string>

#include "document/edited_map.h"
#include "platform/ports.h"
#include "tools/activity.h"
#include "tools/clipboard.h"
#include "tools/tool_state.h"
#include "view/show_options.h"
#include "view/view_transform.h"

namespace vesmora {

/// The screen mouse pointers in use.
enum class PointerShape { kDefault = 0, kCross = 2, kMove = 5, kSizeDiagonal = 8 };

struct Editing : EditedMap {
  explicit Editing(Ports given) : ports(std::move(given)) {}

  ViewTransform view;
  ShowOptions show;
  ToolState tool;
  Activity activity;
  Clipboard clipboard;
  PointerShape pointer = PointerShape::kDefault;
  bool shiftDown = false;  // as last seen by the window's key events
  bool ctrlDown = false;
  Ports ports;

  bool IsTool(ToolMode mode) const { return document.toolIndex == mode; }
};

/// Files the map as it is under the name of the edit that is about to happen. A failure is
/// told once, and the edit goes on.
void TakeUndoSnapshot(Editing& editing, const std::string& actionName);

/// Tells why a command does nothing.
void Refuse(const Editing& editing, const std::string& reason);

/// Has the panel show the state as it is. What was typed for the next scenery and not placed
/// gives way to what is offered.
void RefreshInfoPanel(Editing& editing);
void RedrawMap(const Editing& editing);
void RefreshAll(Editing& editing);

/// Nothing selected, no box, nothing in progress, default pointer. Callers redraw.
void ClearSelection(Editing& editing);

/// Ends what is in progress: a command has come in between. In Edit a rubber band that was
/// still drawn becomes a box to work about, or goes.
void EndActivity(Editing& editing);

/// Whether placed points stick to the grid now.
bool SnapsToGrid(const Editing& editing);

/// The world point that a press at this window position places.
WorldPoint PlacedPoint(const Editing& editing, float screenX, float screenY);

}  // namespace vesmora
