// Which kinds of objects are shown. Hidden kinds are neither drawn nor picked.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vesmora {

enum class ShowFlag : std::size_t {
  kPolygons = 0,
  kSpawns = 1,
  kSceneries = 2,
  kColliders = 3,
  kWaypoints = 4,
  kAdvanced = 5,
};

struct ShowOptions {
  /// 1 = shown. The seventh flag belongs to no kind and is never set.
  std::array<std::int16_t, 7> showFlags = {1, 1, 1, 1, 1, 0, 0};
  /// 0 both paths, 1 or 2 only waypoints of that path.
  std::int16_t pathFilter = 0;

  bool Shows(ShowFlag flag) const { return showFlags[static_cast<std::size_t>(flag)] == 1; }
  /// With both paths, also of waypoints whose path is neither.
  bool ShowsPath(std::int32_t path) const { return pathFilter == 0 || pathFilter == path; }
};

}  // namespace vesmora
