// Conversions from floating point to whole numbers. The map format and the
// screen arithmetic both round to nearest with halves to the even neighbour, so
// every such conversion in the program goes through these few functions:
// values that do not fit saturate and NaN gives 0, whatever a file holds.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace vesmora {

template <typename Integer>
Integer RoundTo(double value) {
  constexpr double kLowest = std::numeric_limits<Integer>::min();
  constexpr double kHighest = std::numeric_limits<Integer>::max();
  if (std::isnan(value)) return 0;
  // llrint rounds in the default mode: to nearest, halves to even.
  return static_cast<Integer>(std::llrint(std::clamp(value, kLowest, kHighest)));
}

inline std::int32_t RoundToInt32(double value) { return RoundTo<std::int32_t>(value); }
inline std::int16_t RoundToInt16(double value) { return RoundTo<std::int16_t>(value); }
inline std::uint8_t RoundToUint8(double value) { return RoundTo<std::uint8_t>(value); }

/// Spawn points and waypoints are kept in 1/256 world units.
inline float FromFixedPoint(std::int32_t value) { return static_cast<float>(value / 256.0); }
inline std::int32_t ToFixedPoint(double world) { return RoundToInt32(world * 256.0); }

}  // namespace vesmora
