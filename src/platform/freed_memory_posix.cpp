#include <malloc.h>

#include "platform/freed_memory.h"

namespace vesmora {

void KeepFreedMemory() {
  constexpr int kKept = 32 << 20;  // bytes; the most that the system's library takes
  ::mallopt(M_MMAP_THRESHOLD, kKept);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
}

}  // namespace vesmora
