#include "panel/panel_state.h"

namespace vesmora {

void RefreshInfoPanel(const PanelContext& context) {
  context.panel.panelRefreshing = true;
  RefreshPanel(context.panel.contents, context.editing.state);
  context.panel.panelRefreshing = false;
}

}  // namespace vesmora
