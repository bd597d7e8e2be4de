// The Run menu: the game, its own map tool and the map's sector grid.
#pragma once

#include "app/editor.h"

namespace vesmora {

/// Brings the game's map tool to the front or starts it.
void MenuRunMaker(Editor& editor);

/// False when it was refused.
bool MenuRunCompile(Editor& editor);

/// Brings the game to the front or starts it on the map as it was last saved.
void MenuRunSoldat(Editor& editor);

/// Compile, Save and Soldat, as far as each of them succeeds.
void MenuRunAll(Editor& editor);

}  // namespace vesmora
