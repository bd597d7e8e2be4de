// Warnings after a real save, about maps that the game would misread. The file
// is already written and is not changed by them.
#pragma once

#include <string>

#include "document/map_document.h"
#include "document/selection.h"
#include "platform/dialogs.h"
#include "platform/display.h"

namespace vesmora {

/// Selects and reports neighbouring corners of a polygon that lie on one spot.
void CheckDuplicateVertices(const MapDocument& document, Selection& selection, Display& display,
                            Dialogs& dialogs);

/// Reports spawn points that do not fit the kind of map `path`'s name makes it.
void CheckCtfSpawns(const MapDocument& document, const std::string& path, Dialogs& dialogs);

}  // namespace vesmora
