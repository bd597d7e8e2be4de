// What the controls of the spawn, scenery, collider and waypoint frames do: in Edit
// to everything selected, in an Add tool to the next object.
#pragma once

#include <string>

#include "panel/panel_state.h"

namespace vesmora {

// Texts are what a box shows after the choice or the Enter key.
void CBspawn_Click(const PanelContext& context, const std::string& text);
void CBscenery_Click(const PanelContext& context, const std::string& text);
void CBscenery2_Click(const PanelContext& context, const std::string& text);
void CBcollider_Click(const PanelContext& context, const std::string& text);

// A text that is being typed: what an Add tool places takes it as it stands.
void CBscenery2_Change(const PanelContext& context, const std::string& text);
void CBcollider_Change(const PanelContext& context, const std::string& text);

// Enter in an editable box.
void CBscenery2_Enter(const PanelContext& context, const std::string& text);
void CBcollider_Enter(const PanelContext& context, const std::string& text);

// A list is about to open: it must offer real values only.
void CBspawn_DropDown(const PanelContext& context);
void CBscenery_DropDown(const PanelContext& context);
void CBscenery2_DropDown(const PanelContext& context);

void CBbotValinta_Click(const PanelContext& context, int index, bool isTicked);
/// `path` is 1 or 2.
void OBbotKumpi_Click(const PanelContext& context, int path);
/// 0 both, 1 or 2 only that path. Takes effect even while the panel is refreshed.
void OBbotNayta_Click(const PanelContext& context, int filter);

}  // namespace vesmora
