// The safety net: what New, Open, Exit or a crash would end is kept, and File > Recover gives it
// back.
#pragma once

#include <string>
#include <vector>

#include "app/editor.h"
#include "document/rescue.h"

namespace vesmora {

/// The open map is as its file has it, or new: from here on edits count.
void NoteSaved(Editor& editor);

/// The open map came from Recover's file `path`, and once from the map file `mapPath`.
void NoteRecovered(Editor& editor, const std::string& path, const std::string& mapPath);

/// Whether the open map has edits that neither its file nor Recover has.
bool IsChanged(Editor& editor);

/// Keeps the open map when it has edits that no file has. False, with the user told, when that
/// failed: it must not be replaced then, unless the same is asked again. Recover's file `opened`,
/// when one is to be opened instead, does not go for it.
[[nodiscard]] bool PutAside(Editor& editor, RescueCause cause, const std::string& opened = "");

/// The same without a word, for an end that cannot be put off. When the map cannot be kept, its
/// undo files, with one of the map as it is, must stay for the next run.
[[nodiscard]] bool PutAsideAtSessionEnd(Editor& editor);

/// Keeps what Redo cannot bring back any more, the map before the first of the last undos. False
/// when that failed or there is nothing to keep.
bool KeepUndone(Editor& editor);

/// The map has been saved: what Recover has of it goes.
void DropRecovered(Editor& editor);

/// Before anything is opened: keeps what dead editors have left. The first thing that failed is
/// returned.
FileStatus FindLostMaps(Editor& editor);

/// Whether there is anything to recover, as last counted: other editors have their part in it.
bool CanRecover(const Editor& editor);
void CountRecoverable(Editor& editor);

/// Paths of what can be recovered, the newest first.
std::vector<std::string> ListRecoverable(const Editor& editor);

/// What the Recover dialog shows of a file.
struct RecoverContents {
  std::string lNimi;      // name of the map
  std::string lKansio;    // folder of its file
  std::int64_t time = 0;  // when it was last seen, milliseconds since 1970
  std::string lSyy;       // what ended it
  std::string lMaara;     // a line each: polygons, spawns, sceneries, colliders, waypoints
  std::unique_ptr<MapDocument> map;  // none when it cannot be read
};

RecoverContents ShowRecoverable(const Editor& editor, const std::string& path);

}  // namespace vesmora
