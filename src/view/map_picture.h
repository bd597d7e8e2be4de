// A whole map in one small picture.
#pragma once

#include "document/map_document.h"
#include "view/canvas.h"
#include "view/view_transform.h"

namespace vesmora {

/// The view of an area of `width` x `height` pixels in which all objects are seen, as large as it
/// lets them be but never larger than the window shows them. What lies farther out than the game
/// can go is left aside.
ViewTransform WholeMapView(const MapDocument& document, int width, int height);

/// Draws the whole map in this view.
void DrawPicture(MapDocument& document, int width, int height, Canvas& canvas);

}  // namespace vesmora
