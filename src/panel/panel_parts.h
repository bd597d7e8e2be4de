// The parts of a panel refresh, one for each group of controls.
#pragma once

#include "panel/panel_contents.h"

namespace vesmora {

void RefreshMapInfo(PanelContents& panel, const EditingState& state);
void RefreshShowBoxes(PanelContents& panel, const EditingState& state);
void RefreshSummary(PanelContents& panel, const EditingState& state);
void RefreshVertexControls(PanelContents& panel, const EditingState& state);
void RefreshSpawnControls(PanelContents& panel, const EditingState& state);
void RefreshSceneryControls(PanelContents& panel, EditingState& state);
void RefreshColliderControls(PanelContents& panel, const EditingState& state);
void RefreshWaypointControls(PanelContents& panel, EditingState& state);

}  // namespace vesmora
