#include "app/keys.h"

#include "app/view_commands.h"
#include "tools/mouse_dispatch.h"
#include "tools/move_selection.h"

namespace vesmora {
namespace {

/// World units of one press of an arrow key.
float ArrowStep(const EditorState& state) {
  if (state.shiftDown && state.ctrlDown) return 50.0f;
  if (state.ctrlDown) return 10.0f;
  return state.shiftDown ? 0.1f : 1.0f;
}

bool MoveByArrow(Editor& editor, int directionX, int directionY) {
  EditorState& state = editor.state;
  if (state.document.toolIndex != ToolMode::kEdit || state.selection.Empty()) return false;
  const float step = ArrowStep(state);
  MoveSelection(editor.AsEditing(), step * static_cast<float>(directionX),
                step * static_cast<float>(directionY));
  editor.ports.window.RedrawMap();
  return true;
}

}  // namespace

bool KeyDown(Editor& editor, Key key) {
  switch (key) {
    case Key::kShift:
      editor.state.shiftDown = true;
      return false;
    case Key::kCtrl:
      editor.state.ctrlDown = true;
      return false;
    case Key::kLeft:
      return MoveByArrow(editor, -1, 0);
    case Key::kUp:
      return MoveByArrow(editor, 0, -1);
    case Key::kRight:
      return MoveByArrow(editor, 1, 0);
    case Key::kDown:
      return MoveByArrow(editor, 0, 1);
    case Key::kKeypadPlus:
      StepZoom(editor, -1);
      return true;
    case Key::kKeypadMinus:
      StepZoom(editor, 1);
      return true;
    case Key::kEscape:
      CancelGesture(editor.AsEditing());
      return false;
    case Key::kOther:
      break;
  }
  return false;
}

void KeyUp(Editor& editor, Key key) {
  if (key == Key::kShift) editor.state.shiftDown = false;
  if (key == Key::kCtrl) editor.state.ctrlDown = false;
}

}  // namespace vesmora
