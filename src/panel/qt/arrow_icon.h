// Pictures of the four directions, drawn at whatever size and scale they are shown.
#pragma once

#include <QIcon>

namespace vesmora {

enum class Direction { kLeft = 0, kRight = 1, kUp = 2, kDown = 3 };

QIcon ArrowIcon(Direction direction);

}  // namespace vesmora
