#include "app/editor.h"

namespace vesmora {

ToolDrawing ToolDrawingOf(const Editing& editing) {
  const bool isAway = editing.tool.hidesNext;
  return {.placedCorners = editing.activity.PlacedCorners(),
          .showsNext = !isAway && !editing.activity.Is(ActivityKind::kDirection),
          .connectionFrom = isAway ? kNoIndex : editing.activity.Anchor(),
          .mouseX = editing.tool.mouseX,
          .mouseY = editing.tool.mouseY};
}

}  // namespace vesmora
