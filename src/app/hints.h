// The line below the map: what the last command has done or what the tool waits for. Problems
// are told in boxes, never here.
#pragma once

#include <string>

#include "app/editor.h"

namespace vesmora {

/// Writes the line in place: it is asked for with every event. The modifier keys that count as
/// held stand before it.
void WriteHint(std::string& line, const Editor& editor);

}  // namespace vesmora
