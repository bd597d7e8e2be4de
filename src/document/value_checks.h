// Values that no object can have, whatever kind it is.
#pragma once

#include <cmath>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>

#include "document/finding_list.h"

namespace vesmora {

/// World units: the game keeps places as 16-bit numbers.
inline constexpr float kFarthestPlace = 32767;

inline bool IsWithinReach(WorldPoint place) {
  return std::abs(place.x) <= kFarthestPlace && std::abs(place.y) <= kFarthestPlace;
}

struct ValueRange {
  float lowest = -std::numeric_limits<float>::max();
  float highest = std::numeric_limits<float>::max();

  bool Holds(float value) const { return value >= lowest && value <= highest; }
};

// Far beyond what any map needs, and far within what the game can still calculate with.
inline constexpr ValueRange kRotationRange = {-100, 100};  // radians
inline constexpr ValueRange kScaleRange = {-1000, 1000};   // and not 0
inline constexpr ValueRange kTextureRange = {-10000, 10000};
inline constexpr ValueRange kDepthRange = {-kFarthestPlace, kFarthestPlace};
inline constexpr ValueRange kBaseSizeRange = {0, kFarthestPlace};  // world units

inline constexpr int kLargestSectorSize = 32767;  // world units

struct NamedValue {
  const char* name = "";
  float value = 0;
  ValueRange range = {};
};

void TellWrongNumber(FindingList& findings, const ObjectReference& object, const NamedValue& value);

/// Whether all of them are numbers in their ranges; tells of the first that is not.
inline bool CheckNumbers(FindingList& findings, const ObjectReference& object,
                         std::initializer_list<NamedValue> values) {
  for (const NamedValue& value : values) {
    if (value.range.Holds(value.value)) continue;
    TellWrongNumber(findings, object, value);
    return false;
  }
  return true;
}

/// Whether a place of finite coordinates can be reached.
bool CheckPlace(FindingList& findings, const ObjectReference& object, WorldPoint place);

}  // namespace vesmora
