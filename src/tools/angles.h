// Angles while Shift is held: multiples of 45 degrees.
#pragma once

namespace vesmora {

/// The nearest multiple of pi/4, by fixed thresholds from -pi/2 to 3 pi/2; what
/// lies beyond the last threshold stays as it is. Radians, single precision.
float SnapAngle45(float angle);

}  // namespace vesmora
