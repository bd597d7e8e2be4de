// The window's first activation and its end.
#pragma once

#include <string>
#include <string_view>

#include "app/editor.h"

namespace vesmora {

/// The product's name and version; builds with the comments "BETA" say so.
std::string WindowTitle(std::string_view version, std::string_view comments);

/// Runs once, when the window has come up: what dead editors have left, a new map, the window's
/// place, the file named on the command line, the recent files, the look for the game, and only
/// then the first picture. `arguments` is the command line without the program.
void FirstActivation(Editor& editor, const std::string& arguments);

/// Opens a map or imports a prefab, whichever the name says it is; refuses the rest.
void OpenNamedFile(Editor& editor, const std::string& path);

/// The same for a file dropped on the window. The import can be undone: unlike at the
/// start, there may be a map to go back to.
void OpenDroppedFile(Editor& editor, const std::string& path);

/// Keeps recent files, placement and what the map has of edits that no file has, then deletes the
/// undo files. False, with the user told, when the map could not be kept: not to be closed then.
[[nodiscard]] bool CleanUp(Editor& editor);

/// The same when the session ends: no question is answered any more.
void CleanUpAtSessionEnd(Editor& editor);

/// Opens slot `slot` of the recent files and empties it when that failed.
void MenuRekentti(Editor& editor, int slot);

}  // namespace vesmora
