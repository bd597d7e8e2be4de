// The system's list of fonts, which takes as long to read as the display to connect to.
#pragma once

namespace vesmora {

/// Reads it ahead of the toolkit, which then finds it ready. May run on any thread, also
/// while the toolkit starts.
void ReadFontConfiguration();

}  // namespace vesmora
