// What the panel's handlers work on and with.
#pragma once

#include "panel/panel_contents.h"

namespace vesmora {

struct PanelState {
  PanelContents contents;
  /// Set while code, not the user, changes controls: no handler may edit the map then.
  bool panelRefreshing = false;
};

struct PanelContext {
  const Editing& editing;
  PanelState& panel;
};

/// Recomputes the whole panel under panelRefreshing.
void RefreshInfoPanel(const PanelContext& context);

}  // namespace vesmora
