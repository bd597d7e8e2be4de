// What a thread works with, used for one map after the other: too large for the stack, and fresh
// memory for every map would take longer than most of the work.
#pragma once

#include <cstdint>
#include <vector>

#include "document/map_document.h"
#include "document/selection.h"

namespace vesmora::map_tool {

struct Workbench {
  MapDocument document;
  MapDocument scratch;
  Selection selection;
  std::vector<std::uint32_t> pixels;
};

}  // namespace vesmora::map_tool
