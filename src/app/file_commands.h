// New, Open and Save.
#pragma once

#include <string>

#include "app/editor.h"
#include "document/map_file.h"

namespace vesmora {

/// A fresh map and the view that goes with it. Asks nothing and cannot be undone; edits that no
/// file has are kept for Recover.
void MenuNew(Editor& editor);

/// The same where there is nothing to keep.
void StartNewMap(Editor& editor);

/// Opens `path` as the Open command, the recent files and the command line do, as MenuNew does.
/// A missing or refused file leaves a new map; one that the system cannot read
/// leaves everything as it was.
LoadOutcome OpenMap(Editor& editor, const std::string& path);

void MenuOpen(Editor& editor);

/// Opens what is chosen in the Recover dialog: a map without a file, that Save asks a name for.
void MenuRecover(Editor& editor);

/// True when the map is in its file: neither cancelled nor failed.
bool MenuSave(Editor& editor);
bool MenuSaveAs(Editor& editor);

}  // namespace vesmora
