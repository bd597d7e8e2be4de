#include <malloc.h>

#include "platform/freed_memory.h"

namespace vesmora {

void KeepFreedMemory() {
  constexpr int kKept = 64 << 20;  // bytes: a dozen pictures of a large screen, or maps without end
  ::mallopt(M_MMAP_THRESHOLD, kKept);
  ::mallopt(M_TRIM_THRESHOLD, kKept);
}

}  // namespace vesmora
