// What the panel's controls of the map itself do: background colours and show boxes.
#pragma once

#include "panel/panel_state.h"

namespace vesmora {

void CBtausta1_Click(const PanelContext& context);
void CBtausta2_Click(const PanelContext& context);

/// Box 0 is "All"; boxes 1 to 6 are the kinds. `isTicked` is the state after the click.
void CBnayta_Click(const PanelContext& context, int index, bool isTicked);

}  // namespace vesmora
