#include "panel/panel_state.h"

namespace vesmora {

void RunHandler(const PanelContext& context, const PanelHandler& handler) {
  handler(context);
  context.editing.state.gesture.LeaveOut(context.editing.state);
}

void RefreshInfoPanel(const PanelContext& context) {
  context.panel.panelRefreshing = true;
  RefreshPanel(context.panel.contents, context.editing.state);
  context.panel.panelRefreshing = false;
}

}  // namespace vesmora
