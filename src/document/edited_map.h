// The map with what belongs to editing it: selection, undo steps, and numbers by which its
// waypoints are known.
#pragma once

#include <cstdint>

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
};

/// Gives the waypoints that have no key yet keys of their own.
void GiveWaypointKeys(EditedMap& map);

}  // namespace vesmora
