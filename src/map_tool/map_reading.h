// A map from the bytes of its file, and what is told when there is none in them.
#pragma once

#include <string>

#include "document/map_file.h"
#include "map_tool/outcome.h"
#include "map_tool/workbench.h"

namespace vesmora::map_tool {

struct ReadMap {
  std::string problem;  // in words, such as "not found"; empty when there is a map
  std::int16_t polygonCount = 0;
};

/// Fills the bench's document and selection.
ReadMap ReadMapFile(const FileContents& file, const std::string& name, bool isUndo,
                    MapDocument& document, Selection& selection);

/// That a file could not be used.
Outcome Trouble(const std::string& name, const std::string& problem);

}  // namespace vesmora::map_tool
