#include "app/editor.h"

#include <algorithm>

namespace vesmora {

ToolDrawing ToolDrawingOf(const EditingState& state) {
  const bool isBuilding = state.document.toolIndex == ToolMode::kAddPolygon;
  return {.placedCorners = isBuilding ? std::clamp<int>(state.tool.value, 0, 2) : 0,
          .hasPendingScenery = state.tool.value != kNoToolValue,
          .mouseX = state.tool.mouseX,
          .mouseY = state.tool.mouseY};
}

}  // namespace vesmora
