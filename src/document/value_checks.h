// Values that no object can have, whatever kind it is.
#pragma once

#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>

#include "document/finding_list.h"

namespace vesmora {

/// World units: the game keeps places as 16-bit numbers.
inline constexpr float kFarthestPlace = 32767;

inline bool IsWithinReach(WorldPoint place) {
  return std::abs(place.x) <= kFarthestPlace && std::abs(place.y) <= kFarthestPlace;
}

struct NamedValue {
  const char* name;
  float value;
};

/// Whether all of them are numbers; tells of the first that is not.
bool CheckNumbers(FindingList& findings, const ObjectReference& object,
                  std::initializer_list<NamedValue> values);

/// Whether a place of finite coordinates can be reached.
bool CheckPlace(FindingList& findings, const ObjectReference& object, WorldPoint place);

}  // namespace vesmora
