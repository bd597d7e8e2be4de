// What becomes of memory that the program no longer needs.
#pragma once

namespace vesmora {

/// From now on it is kept for the next map, instead of being given back and asked for again:
/// every snapshot takes a megabyte or two, and new memory costs more time than filling it.
void KeepFreedMemory();

}  // namespace vesmora
