// Counts every heap allocation of the program, Qt's included.
#pragma once

#include <cstdint>

namespace vesmora::bench {

/// Calls of malloc, calloc and realloc so far, `new` and Qt's containers among them; always 0
/// where the C library cannot be tapped.
std::uint64_t AllocationCount();

}  // namespace vesmora::bench
