// Loading and saving maps. What happened is returned; telling people is for others.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "document/map_document.h"
#include "document/map_image.h"
#include "document/save_checks.h"
#include "document/selection.h"
#include "document/undo_file.h"
#include "platform/files.h"

namespace vesmora {

enum class LoadOutcome {
  kLoaded,
  kRefused,     // missing or of the wrong size: the caller must put a new map in its place
  kUnreadable,  // unreadable, or an undo file that was cut: nothing has changed
};

struct LoadReport {
  LoadOutcome outcome = LoadOutcome::kLoaded;
  FileStatus status;              // of reading the file
  bool isCutShort = false;        // an undo file
  bool hasWrongSize = false;      // also of one that was loaded all the same
  bool hasWrongLayout = false;    // the second table of items was not where it must be
  std::int16_t polygonCount = 0;  // of a map file that was loaded: as it stands there,
                                  // while no more than fit are used
};

/// Fills the document from `path`. An undo file brings its selection and tool
/// along and leaves `fileName`; for any other file the tables are zeroed first,
/// and `shiftDown` lets one of the wrong size be read as far as it goes.
[[nodiscard]] LoadReport LoadMap(MapDocument& document, Selection& selection, FileCalls& files,
                                 const std::string& path, bool isUndo, bool shiftDown = false);

/// The same with a file that has been read already: at least one byte more of it than an undo file
/// has, if there are so many.
[[nodiscard]] LoadReport TakeMapFile(MapDocument& document, Selection& selection,
                                     const FileContents& file, const std::string& path, bool isUndo,
                                     bool shiftDown = false);

/// What is read of a file that may be a map or an undo file: enough to know a longer one.
inline constexpr std::size_t kMapReadLimit = kUndoFileSize + 1;

/// Prepares the derived data as a real save does and gives the bytes that the save writes to
/// `image`, of kMapFileSize. In memory the document stays as the save leaves it. `random` as for
/// WriteMap.
void MakeMapFile(MapDocument& document, Selection& selection, double random,
                 std::span<std::byte> image);

struct WriteReport {
  FileStatus status;
  SaveFindings findings;  // of a real save that succeeded
};

/// Writes the document to `path`. A real save prepares the derived data first,
/// replaces the file as a whole and then looks for what the game would misread;
/// when it fails, document and file are what they were. Of a full scenery table the last one
/// goes. The undo variant writes what is in memory, in place and without syncing, with `mark`.
/// `random` is a uniform number in [0, 1), from which the map gets its `randomId`.
[[nodiscard]] WriteReport WriteMap(MapDocument& document, Selection& selection, FileCalls& files,
                                   double random, const std::string& path, bool isUndo,
                                   UndoMark mark = {});

}  // namespace vesmora
