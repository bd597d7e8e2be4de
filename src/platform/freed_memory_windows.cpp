#include "platform/freed_memory.h"

namespace vesmora {

void KeepFreedMemory() {}  // the heap of this system offers no such choice

}  // namespace vesmora
