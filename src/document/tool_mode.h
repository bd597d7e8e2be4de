// The editing tools. Undo files carry the active one's index.
#pragma once

#include <cstdint>

namespace vesmora {

enum class ToolMode : std::int16_t {
  kEdit = 0,
  kAddPolygon = 1,
  kAddSpawn = 2,
  kAddScenery = 3,
  kAddCollider = 4,
  kAddWaypoint = 5,
};

inline constexpr int kToolCount = 6;

}  // namespace vesmora
