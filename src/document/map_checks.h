// Everything that can be wrong with a map, object by object.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "document/finding.h"
#include "document/map_document.h"

namespace vesmora {

struct CheckedMap {
  const MapDocument& document;  // as it was loaded
  const std::string& fileName;  // its start tells whether it is played for the flag
  /// As the file has it; the document uses no more than fit.
  std::int16_t polygonCount = 0;
};

/// Whole maps first, then kinds and objects in the order of their tables. `scratch` is room for
/// what a save would make of the map; what it holds before does not count.
std::vector<Finding> CheckMap(const CheckedMap& map, MapDocument& scratch);

}  // namespace vesmora
