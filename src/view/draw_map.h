// DrawMap: the one full repaint of the map. The screen and every picture made
// without one come from here.
#pragma once

#include <cstdint>

#include "document/map_document.h"
#include "document/selection.h"
#include "view/canvas.h"
#include "view/show_options.h"
#include "view/view_transform.h"

namespace vesmora {

/// What the drawing must know of the active tool.
struct ToolDrawing {
  int placedCorners = 0;    // of the polygon under construction, 0..2
  bool showsNext = true;    // the corner or object that a press would place
  int connectionFrom = -1;  // the waypoint that a connection is drawn from, -1 for none
  std::int32_t mouseX = 0;  // whole world units
  std::int32_t mouseY = 0;
};

struct MapScene {
  MapDocument& document;  // a connection count beyond its table is cut
  const Selection& selection;
  ViewTransform& view;  // a grid too dense for the zoom is coarsened
  const ShowOptions& show;
  const ToolDrawing& tool;
};

void DrawMap(const MapScene& scene, Canvas& canvas);

}  // namespace vesmora
