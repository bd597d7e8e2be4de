// What must hold whatever the input: anything else is a find.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace vesmora {

inline void Require(bool holds, const char* otherwise) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", otherwise);
  std::abort();
}

}  // namespace vesmora
