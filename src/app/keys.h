// The window's own keys, which it sees before any of its controls.
#pragma once

#include "app/editor.h"

namespace vesmora {

enum class Key {
  kOther,
  kShift,
  kCtrl,
  kLeft,
  kUp,
  kRight,
  kDown,
  kKeypadPlus,
  kKeypadMinus,
  kEscape,
};

/// True when the key has been used and no control must see it.
bool KeyDown(Editor& editor, Key key);
void KeyUp(Editor& editor, Key key);

}  // namespace vesmora
