// What the controls of "Vertice info" and "Polygon info" do to the selected corners.
#pragma once

#include "panel/panel_state.h"

namespace vesmora {

void CBverticevari_Click(const PanelContext& context);
void CByhista_Click(const PanelContext& context);
void CBerota_Click(const PanelContext& context);
void CBtexEiKorjaus_Click(const PanelContext& context, bool isTicked);
void CBtexPalauta_Click(const PanelContext& context);
void CBtexPoista_Click(const PanelContext& context);

/// `isTicked` is the box's state after the click.
void CBverticeLapi_Click(const PanelContext& context, bool isTicked);

}  // namespace vesmora
