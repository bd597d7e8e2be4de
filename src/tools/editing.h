// What the tools and edit commands work on and with.
#pragma once

#include <optional>
#include <string>

#include "document/edited_map.h"
#include "document/snapshot.h"
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
  std::string note;        // what the last command has done, until something else is done
  bool shiftDown = false;  // as last seen by the window's key events
  bool ctrlDown = false;
  Ports ports;

  bool IsTool(ToolMode mode) const { return document.toolIndex == mode; }
};

/// What `write` gives for the map without the triangle that is being built, which is no part of
/// any file and goes on afterwards.
template <typename Write>
auto WithoutTriangle(Editing& editing, Write write) {
  auto& polygons = editing.document.polygons;
  const int unfinished = editing.activity.PlacedCorners() > 0 ? 1 : 0;
  polygons.SetCount(polygons.Count() - unfinished);
  auto written = write();
  polygons.SetCount(polygons.Count() + unfinished);
  return written;
}

/// Files the map as it is under the name of the edit that is about to happen. A failure is
/// told once, and the edit goes on.
void TakeUndoSnapshot(Editing& editing, const std::string& actionName);

/// Tells the first of a row of failures, and what it means for the user.
void TellSnapshotFailure(Editing& editing, const std::optional<SnapshotFailure>& failure,
                         const std::string& consequence);

/// Tells why a command does nothing.
void Refuse(const Editing& editing, const std::string& reason);

/// Has the panel show the state as it is. What was typed for the next scenery and not placed
/// gives way to what is offered.
void RefreshInfoPanel(Editing& editing);
void RedrawMap(const Editing& editing);
void RefreshAll(Editing& editing);

/// Nothing selected, no box, nothing in progress, default pointer. Callers redraw.
void ClearSelection(Editing& editing);

/// Ends what is in progress: a command has come in between. A rubber band that was still drawn
/// becomes the box of the selection, or goes.
void EndActivity(Editing& editing);

/// Gives a selection that has no box its bounds, for a command that works about them: a hover
/// lists objects without one.
void RequireBox(Editing& editing);

/// Whether placed points stick to the grid now.
bool SnapsToGrid(const Editing& editing);

/// The world point that a press at this window position places.
WorldPoint PlacedPoint(const Editing& editing, float screenX, float screenY);

}  // namespace vesmora
