// What the panel shows, computed from the editor's state.
#pragma once

#include "panel/panel_contents.h"
#include "tools/editing.h"

namespace vesmora {

/// Recomputes the panel from scratch.
void RefreshPanel(PanelContents& panel, const Editing& editing);

}  // namespace vesmora
