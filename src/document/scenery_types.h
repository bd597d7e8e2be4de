// The scenery types: names and the base sizes by which sceneries are drawn and sized.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "document/geometry.h"

namespace vesmora {

struct SceneryType {
  std::string_view name;
  std::int32_t width;  // world units at scale 1
  std::int32_t height;
};

/// Index 0 is the empty name; a scenery's `type` is an index into this table.
inline constexpr std::array<SceneryType, 22> kSceneryTypes = {{
    {"", 0, 0},
    {"Grass", 100, 10},
    {"Short Grass", 200, 5},
    {"Long Grass", 50, 25},
    {"Dark Grass", 100, 10},
    {"Liana", 50, 11},
    {"Green Ceiling Stuff", 25, 25},
    {"Fence Thingy", 100, 10},
    {"Metal Rubble", 50, 11},
    {"More Metal Dirt", 50, 11},
    {"Brown Metal Dirt", 50, 11},
    {"Wooden Board", 50, 11},
    {"Grey Board", 50, 11},
    {"Thin Grey Board", 50, 6},
    {"Earth", 35, 11},
    {"Lots of Lianas", 40, 35},
    {"Stone", 40, 12},
    {"Barrel", 10, 10},
    {"Garbish", 10, 10},
    {"Small Crate", 6, 5},
    {"Sandbags", 15, 4},
    {"Big Crate", 10, 10},
}};

/// The one type that is placed with a direction and cannot be rotated by its handle.
inline constexpr std::uint8_t kLianaType = 5;
inline constexpr float kLianaRotation = -kPi / 2;  // hanging down, until it is given a direction

/// The row of a record's `type` byte; a type beyond the table has no name and no size.
inline const SceneryType& SceneryTypeOf(std::uint8_t type) {
  return kSceneryTypes[type < kSceneryTypes.size() ? type : 0];
}

}  // namespace vesmora
