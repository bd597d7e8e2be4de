#include "document/edited_map.h"

namespace vesmora {

void GiveWaypointKeys(EditedMap& map) {
  for (std::int32_t& key :
       std::span(map.waypointKeys).first(map.document.waypoints.Used().size())) {
    if (key == 0) key = ++map.newestWaypointKey;
  }
}

}  // namespace vesmora
