// The editor's whole state and the ports through which it meets the world. The
// window owns one Editor for the program's whole run; commands work on it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "app/recent_files.h"
#include "document/rescue.h"
#include "panel/panel_editing.h"
#include "view/draw_map.h"

namespace vesmora {

struct Editor : PanelEditing {
  using PanelEditing::PanelEditing;

  RecentFiles recent;
  std::string pointerText;       // read-out of the pointer's world position
  bool redrawSuppressed = true;  // until the window is first activated
  int recoverable = 0;           // maps that Recover has, as last seen
  std::string recoveredFrom;     // Recover's file of the open map, until it is saved
  // What was not done, as the map, by its fingerprint, could not be kept: again, it gives it up.
  std::optional<std::pair<RescueCause, std::uint64_t>> refused;
};

/// What the drawing must know of the active tool.
ToolDrawing ToolDrawingOf(const Editing& editing);

}  // namespace vesmora
