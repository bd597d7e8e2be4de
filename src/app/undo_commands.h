// Undo, Redo and Help, which leaves an undo step of its own.
#pragma once

#include "app/editor.h"

namespace vesmora {

void MenuUndo(Editor& editor);

/// Takes the last Undo back: the map, its selection and tool are as they were before it.
void MenuRedo(Editor& editor);

/// Opens the manual, then takes the snapshot "Help".
void MenuHelp(Editor& editor);

}  // namespace vesmora
