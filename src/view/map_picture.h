// A whole map in one small picture.
#pragma once

#include "document/map_document.h"
#include "view/canvas.h"

namespace vesmora {

/// Draws all objects, as large as an area of `width` x `height` pixels lets them be but never
/// larger than the window shows them. What lies farther out than the game can go is left aside.
void DrawPicture(MapDocument& document, int width, int height, Canvas& canvas);

}  // namespace vesmora
