// What the panel's handlers work on and with.
#pragma once

#include <functional>

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

using PanelHandler = std::function<void(const PanelContext&)>;

/// Runs what a click in the panel sets off; Escape does not take its changes back.
void RunHandler(const PanelContext& context, const PanelHandler& handler);

/// Recomputes the whole panel under panelRefreshing.
void RefreshInfoPanel(const PanelContext& context);

}  // namespace vesmora
