// The rotated rectangle of a scenery's picture.
#pragma once

#include "document/records.h"
#include "view/canvas.h"

namespace vesmora {

/// The rectangle's two sides as offsets from the scenery's position, world units.
struct ScenerySides {
  ScreenPoint along;   // ends at the rotate handle
  ScreenPoint across;  // both together end at the size handle
};

ScenerySides SidesOf(const SceneryObject& scenery);

}  // namespace vesmora
