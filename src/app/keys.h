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

/// What is held while a key is pressed, as the key press itself says.
struct KeyModifiers {
  bool shift = false;
  bool ctrl = false;
};

/// True when the key has been used and no control must see it.
bool KeyDown(Editor& editor, Key key, KeyModifiers held = {});
void KeyUp(Editor& editor, Key key);

}  // namespace vesmora
