// The rotated rectangle of a scenery's picture.
#pragma once

#include "document/records.h"
#include "view/view_transform.h"

namespace vesmora {

/// The rectangle's two sides as offsets from the scenery's position.
struct ScenerySides {
  WorldPoint along;   // ends at the rotate handle
  WorldPoint across;  // both together end at the size handle
};

ScenerySides SidesOf(const SceneryObject& scenery);

}  // namespace vesmora
