// What differs between two maps, object by object.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "document/map_document.h"
#include "document/object_reference.h"

namespace vesmora {

enum class DifferenceKind { kAdded, kRemoved, kMoved, kChanged };

/// "added", "removed", "moved", "changed".
std::string_view NameOf(DifferenceKind kind);

struct Difference {
  DifferenceKind kind = DifferenceKind::kChanged;
  ObjectReference before = {};  // slot -1 of what was added, and of the map's own properties
  ObjectReference after = {};   // slot -1 of what was removed, likewise
  std::optional<WorldPoint> place = std::nullopt;  // where it lies, at last if it is still there
  std::string text = {};  // what has changed in words; empty of what came or went
};

/// Empty when the maps are the same but for `randomId`, which every save draws anew. Objects are
/// recognised whatever slots they have moved to; that others have gone before them is no change
/// of theirs.
std::vector<Difference> CompareMaps(const MapDocument& before, const MapDocument& after);

}  // namespace vesmora
