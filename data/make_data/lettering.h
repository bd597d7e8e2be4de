// The alphabet as prefabs: strokes become triangles, and every letter stands on a piece
// of a line as wide as its cell. The editor puts letters edge to edge, so that line is
// what keeps neighbours apart, and what makes all of them equally high.
#pragma once

#include <vector>

#include "data_file.h"

namespace vesmora {

/// Every letter in a file named by its single-byte code.
std::vector<DataFile> MakeAlphabet();

}  // namespace vesmora
