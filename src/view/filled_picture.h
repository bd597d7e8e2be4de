// The ground of a map as players see it: filled polygons over the background's colours.
#pragma once

#include "document/map_document.h"
#include "view/pixel_painter.h"
#include "view/texture.h"
#include "view/view_transform.h"

namespace vesmora {

/// Paints the background from its first colour at the top to its second at the bottom, and over it,
/// with `withPolygons`, the polygons in their order, each with the colours of its corners running
/// into each other, times the texture where there is one. Corners that are no place are left out
/// with their polygon. Takes no longer for corners far outside.
void PaintFilled(const MapDocument& document, const ViewTransform& view, const Texture* texture,
                 bool withPolygons, const Picture& picture);

}  // namespace vesmora
