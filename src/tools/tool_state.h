// What the active tool keeps between events.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "view/canvas.h"

namespace vesmora {

inline constexpr std::int16_t kDefaultColliderSize = 12;

/// What the next object gets, as the property panel holds it.
struct NextObject {
  Rgb vertexColor = {255, 255, 255};
  /// As chosen or typed; none: the last scenery's. See NextVisibility.
  std::optional<std::string> visibility = {};
  std::string colliderSize = "12";
  std::array<std::uint8_t, 5> botSettings{};
  /// Moved corners keep their texture coordinates instead of their place in the world's texture.
  bool noTextureCorrection = false;
};

struct ToolState {
  /// One number for all Add tools: a spawn's team, a scenery's type, a collider's size or a
  /// waypoint's path.
  std::int16_t value = 0;
  // The pointer in whole world units.
  std::int32_t mouseX = 0;
  std::int32_t mouseY = 0;
  /// What would be placed next lies where the pointer was before the zoom changed.
  bool hidesNext = false;
  NextObject next;
};

}  // namespace vesmora
