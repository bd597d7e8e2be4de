#include <algorithm>

#include "panel/panel_handlers.h"
#include "panel/refresh_panel.h"
#include "view/palette.h"

namespace vesmora {
namespace {

/// The step is taken before the dialog, and stays when it is cancelled.
void ChooseBackground(PanelEditing& editing, MapColor& color) {
  TakeUndoSnapshot(editing, "Background");
  const std::int32_t present = RGBToLong(ToRgb(color));
  const auto chosen = editing.ports.dialogs.ChooseColor(present);
  SetColor(color, LongToRGB(chosen.value_or(present)));
  RefreshAll(editing);
}

}  // namespace

void CBtausta1_Click(PanelEditing& editing) {
  ChooseBackground(editing, editing.document.backgroundColor1);
}

void CBtausta2_Click(PanelEditing& editing) {
  ChooseBackground(editing, editing.document.backgroundColor2);
}

void CBnayta_Click(PanelEditing& editing, int index, bool isTicked) {
  auto& flags = editing.show.showFlags;
  const std::int16_t flag = isTicked ? 1 : 0;
  if (index > 0) {
    flags[static_cast<std::size_t>(index) - 1] = flag;
    RefreshInfoPanel(editing);
  } else {
    std::fill_n(flags.begin(), 6, flag);
    // "All" moves no other tick: a later refresh brings the boxes in line.
    PanelContents& contents = editing.panel.contents;
    const auto boxes = contents.CBnayta;
    RefreshPanel(contents, editing);
    contents.CBnayta = boxes;
    contents.CBnayta[0].tick = isTicked ? Tick::kOn : Tick::kOff;
  }
  RedrawMap(editing);
}

}  // namespace vesmora
