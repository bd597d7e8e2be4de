// The parts of a panel refresh, one for each group of controls.
#pragma once

#include "panel/panel_contents.h"
#include "tools/editing.h"

namespace vesmora {

void RefreshMapInfo(PanelContents& panel, const Editing& editing);
void RefreshShowBoxes(PanelContents& panel, const Editing& editing);
void RefreshSummary(PanelContents& panel, const Editing& editing);
void RefreshVertexControls(PanelContents& panel, const Editing& editing);
void RefreshSpawnControls(PanelContents& panel, const Editing& editing);
void RefreshSceneryControls(PanelContents& panel, const Editing& editing);
void RefreshColliderControls(PanelContents& panel, const Editing& editing);
void RefreshWaypointControls(PanelContents& panel, const Editing& editing);

}  // namespace vesmora
