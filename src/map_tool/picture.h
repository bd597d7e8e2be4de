// A map painted in memory or written as SVG.
#pragma once

#include <string>
#include <vector>

#include "map_tool/arguments.h"
#include "map_tool/workbench.h"
#include "view/pixel_painter.h"
#include "view/texture.h"

namespace vesmora::map_tool {

/// The picture of the bench's pixels, made as large as told.
Picture PictureOf(Workbench& bench, int width, int height);

/// Draws the bench's map all over the picture.
void PaintMap(Workbench& bench, const PictureOptions& options, const Texture* texture,
              const Picture& picture);

/// The same as the elements of an SVG file.
std::string MapElements(Workbench& bench, const PictureOptions& options, const Texture* texture,
                        int width, int height);

}  // namespace vesmora::map_tool
