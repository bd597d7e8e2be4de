// The editor's whole state and the ports through which it meets the world. The
// window owns one Editor for the program's whole run; commands work on it.
#pragma once

#include <string>

#include "app/recent_files.h"
#include "panel/panel_editing.h"
#include "view/draw_map.h"

namespace vesmora {

struct Editor : PanelEditing {
  using PanelEditing::PanelEditing;

  RecentFiles recent;
  std::string pointerText;       // read-out of the pointer's world position
  bool redrawSuppressed = true;  // until the window is first activated
};

/// What the drawing must know of the active tool.
ToolDrawing ToolDrawingOf(const Editing& editing);

}  // namespace vesmora
