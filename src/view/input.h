// Mouse input as plain values: tools and view never see a toolkit event.
#pragma once

namespace vesmora {

enum class MouseButton { kNone = 0, kLeft = 1, kRight = 2, kOther = 3 };

/// Position in window pixels of the client area.
struct MouseInput {
  MouseButton button = MouseButton::kNone;
  float x = 0;
  float y = 0;
  // Of a move: the button is certainly up. A release can be lost to a message box.
  bool leftIsUp = false;
  bool rightIsUp = false;
};

}  // namespace vesmora
