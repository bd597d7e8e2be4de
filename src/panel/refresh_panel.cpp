#include "panel/refresh_panel.h"

#include "panel/panel_parts.h"

namespace vesmora {

void RefreshPanel(PanelContents& panel, const Editing& editing) {
  RefreshMapInfo(panel, editing);
  RefreshShowBoxes(panel, editing);
  RefreshSummary(panel, editing);
  RefreshVertexControls(panel, editing);
  RefreshSpawnControls(panel, editing);
  RefreshSceneryControls(panel, editing);
  RefreshColliderControls(panel, editing);
  RefreshWaypointControls(panel, editing);
  panel.highlightedTool = editing.document.toolIndex;
}

}  // namespace vesmora
