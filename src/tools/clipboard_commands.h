// Copy and Paste.
#pragma once

#include "tools/editing.h"

namespace vesmora {

/// Copies what is selected, a polygon with any of its corners, as far as the map
/// has room for it.
void MenuCopy(const Editing& editing);

/// Adds what was copied, as far as it fits, selects it and puts it in the middle of
/// the view.
void MenuPaste(const Editing& editing);

}  // namespace vesmora
