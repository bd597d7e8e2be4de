// What the active tool keeps between events.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "document/geometry.h"
#include "view/canvas.h"

namespace vesmora {

inline constexpr std::int16_t kNoToolValue = -9999;
inline constexpr std::int16_t kDefaultColliderSize = 12;
inline constexpr float kLianaRotation = -kPi / 2;  // until it is given a direction

/// What the property panel holds for the next object.
struct NextObject {
  Rgb vertexColor = {255, 255, 255};
  std::string visibility = "100%";
  std::string colliderSize = "12";
  std::array<std::uint8_t, 5> botSettings{};
  /// Moved corners keep their texture coordinates instead of their place in the world's texture.
  bool noTextureCorrection = false;
};

struct ToolState {
  /// One number for all Add tools: the placed corners of a polygon, a spawn's
  /// team, a scenery's type (kNoToolValue while its direction is pending), a
  /// collider's size or a waypoint's path.
  std::int16_t value = 0;
  std::int16_t pendingScenery = -1;  // the one whose direction is pending
  // The pointer in whole world units.
  std::int32_t mouseX = 0;
  std::int32_t mouseY = 0;
  NextObject next;
};

}  // namespace vesmora
