// The stretch of one axis that something takes up.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace vesmora {

/// What is infinite or no number does not count: whatever follows from it would be neither.
struct Extent {
  float low = std::numeric_limits<float>::max();
  float high = std::numeric_limits<float>::lowest();

  void Include(float value) {
    if (!std::isfinite(value)) return;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  bool Empty() const { return low > high; }
};

}  // namespace vesmora
