#include "platform/freed_memory.h"

namespace vesmora {

void KeepFreedMemory() {}  // the system's heap does so of itself

}  // namespace vesmora
