#include "tools/clipboard.h"

namespace vesmora {

std::int16_t Clipboard::TotalCounter() const {
  return static_cast<std::int16_t>(polygons.Count() + spawns.Count() + sceneries.Count() +
                                   colliders.Count() + waypoints.Count() - 1);
}

void ClearClipboard(Clipboard& clipboard) {
  clipboard.polygons.last = -1;
  clipboard.spawns.last = -1;
  clipboard.sceneries.last = -1;
  clipboard.colliders.last = -1;
  clipboard.waypoints.last = -1;
  clipboard.overflow = false;
}

}  // namespace vesmora
