#include "panel/panel_contents.h"

#include "panel/panel_parts.h"

namespace vesmora {

void RefreshPanel(PanelContents& panel, EditingState& state) {
  RefreshMapInfo(panel, state);
  RefreshShowBoxes(panel, state);
  RefreshSummary(panel, state);
  RefreshVertexControls(panel, state);
  RefreshSpawnControls(panel, state);
  RefreshSceneryControls(panel, state);
  RefreshColliderControls(panel, state);
  RefreshWaypointControls(panel, state);
  panel.highlightedTool = state.document.toolIndex;
}

}  // namespace vesmora
