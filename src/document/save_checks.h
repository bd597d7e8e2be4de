// What the game would misread in a saved map. The file is not changed by it.
#pragma once

#include <cstddef>
#include <string>

#include "document/map_document.h"
#include "document/selection.h"

namespace vesmora {

enum class SpawnProblem {
  kNone,
  kFlagMapWithoutName,  // the first spawn is a team's, the file's name is not that of a flag map
  kWrongFlagOrder,      // a flag map must begin with the red and then the blue flag
};

struct SaveFindings {
  bool duplicateVertices = false;  // the corners concerned are now what is selected
  SpawnProblem spawns = SpawnProblem::kNone;
};

/// Whether corner `corner` of 0..2 and the one after it lie on one spot.
[[nodiscard]] bool CornersCoincide(const Polygon& polygon, std::size_t corner);

/// Whether maps of this file name are played for the flag.
[[nodiscard]] bool IsFlagMapName(const std::string& path);

/// True, with just these selected, when neighbouring corners of a polygon lie on one spot.
[[nodiscard]] bool CheckDuplicateVertices(const MapDocument& document, Selection& selection);

/// Whether the spawn points fit the kind of map that the name of `path` makes it.
[[nodiscard]] SpawnProblem CheckCtfSpawns(const MapDocument& document, const std::string& path);

}  // namespace vesmora
