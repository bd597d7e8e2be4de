// What the panel's handlers work on and with.
#pragma once

#include <functional>

#include "panel/panel_contents.h"
#include "tools/editing.h"

namespace vesmora {

struct PanelState {
  PanelContents contents;
  /// Set while code, not the user, changes controls: no handler may run then, nor inside another.
  bool panelRefreshing = false;
};

struct PanelEditing : Editing {
  using Editing::Editing;

  PanelState panel;
};

using PanelHandler = std::function<void(PanelEditing&)>;

/// Runs what a control of the panel sets off, unless panelRefreshing is set. Escape does not
/// take its changes back.
void RunHandler(PanelEditing& editing, const PanelHandler& handler);

}  // namespace vesmora
