// Loading and saving maps, with everything that is told to the user on the way.
#pragma once

#include <functional>
#include <string>

#include "document/map_document.h"
#include "document/selection.h"
#include "platform/dialogs.h"
#include "platform/display.h"
#include "platform/files.h"

namespace vesmora {

/// Uniform random numbers in [0, 1).
using RandomSource = std::function<double()>;

/// What reading and writing a map works on and with.
struct MapFileContext {
  MapDocument& document;
  Selection& selection;
  FileCalls& files;
  Dialogs& dialogs;
  Display& display;
  const RandomSource& random;
};

enum class LoadOutcome {
  kLoaded,
  kRefused,     // missing or of the wrong size: the caller owes the user a new map
  kUnreadable,  // unreadable, or an undo file that was cut: nothing has changed
};

/// Fills the document from `path`. An undo file brings its selection and tool
/// along and leaves `fileName`; for any other file the tables are zeroed first,
/// and `shiftDown` lets one of the wrong size be read as far as it goes.
LoadOutcome LoadMap(const MapFileContext& context, const std::string& path, bool isUndo,
                    bool shiftDown = false);

/// Writes the document to `path`. A real save prepares the derived data first,
/// replaces the file as a whole and then runs the checks that warn about maps
/// the game would misread; when it fails, document and file are what they were.
/// The undo variant writes what is in memory, in place and without syncing.
/// Tells nothing of failures: the caller does.
FileStatus WriteMap(const MapFileContext& context, const std::string& path, bool isUndo);

}  // namespace vesmora
