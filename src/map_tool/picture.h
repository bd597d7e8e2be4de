// A map painted in memory or written as SVG.
#pragma once

#include <string>
#include <vector>

#include "map_tool/commands.h"
#include "view/pixel_painter.h"
#include "view/texture.h"

namespace vesmora::map_tool {

/// Whether an output of this name is SVG.
bool IsSvg(const PictureOptions& options, const std::string& target);

/// What all pictures of a map begin with: the map on the bench, or trouble.
Outcome StartPicture(const Task& task, Workbench& bench);

/// Draws the bench's map with the bench's pixels, which are as many as told.
Picture PaintMap(Workbench& bench, const PictureOptions& options, const Texture* texture, int width,
                 int height);

/// The same as the elements of an SVG file.
std::string MapElements(Workbench& bench, const PictureOptions& options, const Texture* texture,
                        int width, int height);

}  // namespace vesmora::map_tool
