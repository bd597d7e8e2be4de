#include "tools/angles.h"

#include "document/geometry.h"

namespace vesmora {

float SnapAngle45(float angle) {
  constexpr int kFirst = -2;  // -pi/2
  constexpr int kLast = 6;    // 3 pi/2
  for (int k = kFirst; k <= kLast; ++k) {
    const float threshold = static_cast<float>(k) * kPi / 4 + kPi / 8;
    if (angle < threshold) return static_cast<float>(k) * kPi / 4;
  }
  return angle;
}

}  // namespace vesmora
