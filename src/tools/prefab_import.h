// Bringing prefabs into the map: one to place with the mouse, or letter by letter
// the author's name.
#pragma once

#include <string>

#include "tools/editing.h"

namespace vesmora {

enum class ImportManner {
  kPlaced,  // tells what is wrong; what came in follows the pointer until it is dropped
  kQuiet,   // tells nothing and moves nothing
};

/// Appends a prefab's objects, as far as they fit, and selects them alone. `shiftDown`
/// of the state lets a prefab of another version be read.
void ImportPrefab(Editing& editing, const std::string& path, ImportManner manner);

/// Writes a text on the map with the letter prefabs of a folder, to place with the
/// mouse. `text` is single-byte; characters without a letter leave a gap.
void PlaceAuthorText(Editing& editing, const std::string& text, const std::string& alphabetFolder);

}  // namespace vesmora
