#include "app/keys.h"

#include "app/view_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/move_selection.h"

namespace vesmora {
namespace {

/// World units of one press of an arrow key.
float ArrowStep(KeyModifiers held) {
  if (held.shift && held.ctrl) return 50.0f;
  if (held.ctrl) return 10.0f;
  return held.shift ? 0.1f : 1.0f;
}

bool MoveByArrow(Editor& editor, WorldPoint direction, KeyModifiers held) {
  if (!editor.IsTool(ToolMode::kEdit) || editor.selection.Empty()) return false;
  const float step = ArrowStep(held);
  editor.note.clear();
  MoveSelection(editor, {step * direction.x, step * direction.y});
  RedrawMap(editor);
  return true;
}

}  // namespace

bool KeyDown(Editor& editor, Key key, KeyModifiers held) {
  switch (key) {
    case Key::kShift:
      editor.shiftDown = true;
      return false;
    case Key::kCtrl:
      editor.ctrlDown = true;
      return false;
    case Key::kLeft:
      return MoveByArrow(editor, {-1, 0}, held);
    case Key::kUp:
      return MoveByArrow(editor, {0, -1}, held);
    case Key::kRight:
      return MoveByArrow(editor, {1, 0}, held);
    case Key::kDown:
      return MoveByArrow(editor, {0, 1}, held);
    case Key::kKeypadPlus:
      StepZoom(editor, -1);
      return true;
    case Key::kKeypadMinus:
      StepZoom(editor, 1);
      return true;
    case Key::kEscape:
      CancelGesture(editor);
      return false;
    case Key::kOther:
      break;
  }
  return false;
}

void KeyUp(Editor& editor, Key key) {
  if (key == Key::kShift) editor.shiftDown = false;
  if (key == Key::kCtrl) editor.ctrlDown = false;
}

}  // namespace vesmora
