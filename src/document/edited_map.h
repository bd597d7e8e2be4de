// The map with what belongs to editing it: selection, undo steps, and numbers by which its
// waypoints are known.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "document/map_document.h"
#include "document/selection.h"
#include "document/undo_journal.h"

namespace vesmora {

struct EditedMap {
  MapDocument document;
  Selection selection;
  UndoJournal journal;
  WaypointKeys waypointKeys{};
  std::int32_t newestWaypointKey = 0;
  std::uint64_t savedMap = 0;  // fingerprint of the map as it was opened, saved or kept for Recover
  std::string rescuedPath;     // of the file that a recovered map had, which has none now
};

/// Gives the waypoints that have no key yet keys of their own.
inline void GiveWaypointKeys(EditedMap& map) {
  for (std::int32_t& key :
       std::span(map.waypointKeys).first(map.document.waypoints.Used().size())) {
    if (key == 0) key = ++map.newestWaypointKey;
  }
}

}  // namespace vesmora
