// What the panel's controls do: in Edit to everything selected, in an Add tool to the next
// object.
#pragma once

#include <string>

#include "panel/panel_editing.h"

namespace vesmora {

// The map itself.
void CBtausta1_Click(PanelEditing& editing);
void CBtausta2_Click(PanelEditing& editing);

/// Box 0 is "All"; boxes 1 to 6 are the kinds. `isTicked` is the state after the click.
void CBnayta_Click(PanelEditing& editing, int index, bool isTicked);

// "Vertice info" and "Polygon info".
void CBverticevari_Click(PanelEditing& editing);
void CByhista_Click(PanelEditing& editing);
void CBerota_Click(PanelEditing& editing);
void CBtexEiKorjaus_Click(PanelEditing& editing, bool isTicked);
void CBtexPalauta_Click(PanelEditing& editing);
void CBtexPoista_Click(PanelEditing& editing);

/// `isTicked` is the box's state after the click.
void CBverticeLapi_Click(PanelEditing& editing, bool isTicked);

// The spawn, scenery, collider and waypoint frames.
// Texts are what a box shows after the choice or the Enter key.
void CBspawn_Click(PanelEditing& editing, const std::string& text);
void CBscenery_Click(PanelEditing& editing, const std::string& text);
void CBscenery2_Click(PanelEditing& editing, const std::string& text);
void CBcollider_Click(PanelEditing& editing, const std::string& text);

// A text that is being typed: what an Add tool places takes it as it stands.
void CBscenery2_Change(PanelEditing& editing, const std::string& text);
void CBcollider_Change(PanelEditing& editing, const std::string& text);
/// The box has been left: its text is no longer one that Enter would apply.
void ForgetTyping(PanelEditing& editing);

// Enter in an editable box.
void CBscenery2_Enter(PanelEditing& editing, const std::string& text);
void CBcollider_Enter(PanelEditing& editing, const std::string& text);

// A list is about to open: it must offer real values only.
void CBspawn_DropDown(PanelEditing& editing);
void CBscenery_DropDown(PanelEditing& editing);
void CBscenery2_DropDown(PanelEditing& editing);

void CBbotValinta_Click(PanelEditing& editing, int index, bool isTicked);
/// `path` is 1 or 2.
void OBbotKumpi_Click(PanelEditing& editing, int path);
/// 0 both, 1 or 2 only that path.
void OBbotNayta_Click(PanelEditing& editing, int filter);

}  // namespace vesmora
