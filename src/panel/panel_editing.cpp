#include "panel/panel_editing.h"

namespace vesmora {

void RunHandler(PanelEditing& editing, const PanelHandler& handler) {
  bool& panelRefreshing = editing.panel.panelRefreshing;
  if (panelRefreshing) return;
  panelRefreshing = true;
  const std::int16_t stepBefore = editing.journal.undoSlot;
  editing.note.clear();
  handler(editing);
  panelRefreshing = false;
  editing.activity.KeepChanges(editing, editing.journal.undoSlot != stepBefore);
}

}  // namespace vesmora
