// Pictures as PNG files.
#pragma once

#include <cstddef>
#include <vector>

#include "view/pixel_painter.h"

namespace vesmora::map_tool {

/// The whole file, colours without alpha. Throws std::bad_alloc when there is no memory for it.
std::vector<std::byte> EncodePng(const Picture& picture);

}  // namespace vesmora::map_tool
