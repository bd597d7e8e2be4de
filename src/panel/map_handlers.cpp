#include "panel/map_handlers.h"

#include <algorithm>

#include "view/palette.h"

namespace vesmora {
namespace {

/// The step is taken before the dialog, and stays when it is cancelled.
void ChooseBackground(const PanelContext& context, MapColor& color) {
  if (context.panel.panelRefreshing) return;
  TakeUndoSnapshot(context.editing, "Background");
  const std::int32_t present = RGBToLong(ToRgb(color));
  const auto chosen = context.editing.ports.dialogs.ChooseColor(present);
  SetColor(color, LongToRGB(chosen.value_or(present)));
  RefreshAll(context.editing);
}

}  // namespace

void CBtausta1_Click(const PanelContext& context) {
  ChooseBackground(context, context.editing.state.document.backgroundColor1);
}

void CBtausta2_Click(const PanelContext& context) {
  ChooseBackground(context, context.editing.state.document.backgroundColor2);
}

void CBnayta_Click(const PanelContext& context, int index, bool isTicked) {
  if (context.panel.panelRefreshing) return;
  auto& flags = context.editing.state.show.showFlags;
  auto& boxes = context.panel.contents.CBnayta;
  const std::int16_t flag = isTicked ? 1 : 0;
  if (index > 0) {
    flags[static_cast<std::size_t>(index) - 1] = flag;
    context.editing.ports.display.RefreshInfoPanel();
  } else {
    std::fill_n(flags.begin(), 6, flag);
    // "All" moves no other tick: the next refresh brings the boxes in line.
    auto clicked = boxes;
    clicked[0].tick = isTicked ? Tick::kOn : Tick::kOff;
    context.editing.ports.display.RefreshInfoPanel();
    boxes = clicked;
  }
  context.editing.ports.display.RedrawMap();
}

}  // namespace vesmora
