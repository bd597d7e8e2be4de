#include "app/editor.h"

namespace vesmora {

ToolDrawing ToolDrawingOf(const Editing& editing) {
  return {.placedCorners = editing.activity.PlacedCorners(),
          .showsNext = !editing.tool.hidesNext && !editing.activity.Is(ActivityKind::kDirection),
          .connectionFrom = editing.activity.Anchor(),
          .mouseX = editing.tool.mouseX,
          .mouseY = editing.tool.mouseY};
}

}  // namespace vesmora
