// The ready-made pieces of maps, around the origin and sized for a player of 20 units.
#pragma once

#include <vector>

#include "data_file.h"

namespace vesmora {

std::vector<DataFile> MakePieces();

}  // namespace vesmora
