// The system's error numbers in the terms of <cerrno>.
#pragma once

namespace vesmora {

/// The <cerrno> value nearest to one of the system's own; EIO for those without one.
int ErrnoOf(unsigned long error);

}  // namespace vesmora
