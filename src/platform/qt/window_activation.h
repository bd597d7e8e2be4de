// Other programs' windows on an X desktop.
#pragma once

#include <string>

namespace vesmora {

/// Asks the window manager to bring the window with just this title to the front, out of
/// its icon too. False when no window of another program has it, or there is no X display
/// or no window manager to ask. Never takes more than about two seconds.
bool ActivateWindowByTitle(const std::string& title);

}  // namespace vesmora
