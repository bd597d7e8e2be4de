// The editor's whole state and the ports through which it meets the world. The
// window owns one Editor for the program's whole run; commands work on it.
#pragma once

#include <string>

#include "app/recent_files.h"
#include "app/window_port.h"
#include "panel/panel_state.h"
#include "platform/profile_files.h"
#include "platform/programs.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "tools/editing.h"
#include "view/redraw_map.h"

namespace vesmora {

struct EditorState : EditingState {
  PanelState panel;
  RecentFiles recent;
  std::string pointerText;       // read-out of the pointer's world position
  bool redrawSuppressed = true;  // until the window is first activated
};

struct Ports : EditingPorts {
  WindowPort& window;  // the same window as `display`
  Settings& settings;
  Shell& shell;
  Programs& programs;
  ProfileFiles& profiles;
  // Folders end with a slash.
  std::string tempFolder;     // of this user's own
  std::string programFolder;  // the program with Prefab, Alphabet and Help
  std::string gameFolder;     // the one above, where the game lies
};

struct Editor {
  EditorState state;
  Ports ports;

  Editing AsEditing() { return {state, ports}; }
};

/// What the drawing must know of the active tool.
ToolDrawing ToolDrawingOf(const EditingState& state);

}  // namespace vesmora
