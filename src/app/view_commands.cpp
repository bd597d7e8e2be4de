#include "app/view_commands.h"

#include <array>
#include <charconv>
#include <string>

#include "tools/mouse_dispatch.h"

namespace vesmora {
namespace {

/// With a decimal point whatever the locale.
std::string OneDecimal(float value) {
  std::array<char, 64> digits{};
  const auto end =
      std::to_chars(digits.begin(), digits.end(), value, std::chars_format::fixed, 1).ptr;
  return {digits.begin(), end};
}

std::string PointerText(const ViewTransform& view, const MouseInput& input) {
  return OneDecimal(view.LaskeRuutu2X(input.x)) + ", " + OneDecimal(view.LaskeRuutu2Y(input.y));
}

/// As if the pointer had left the map: what it pointed at is elsewhere now.
void ShowNewZoom(Editor& editor) {
  LeaveMap(editor);
  editor.ports.window.RedrawMap();
}

}  // namespace

void PointAt(Editor& editor, const MouseInput& input) {
  MoveMouse(editor.AsEditing(), input);
  editor.state.pointerText = PointerText(editor.state.view, input);
}

void TurnWheel(Editor& editor, int delta) {
  if (ZoomByWheel(editor.state.view, delta)) ShowNewZoom(editor);
}

void LeaveMap(Editor& editor) {
  editor.state.pointerText.clear();
  ForgetHover(editor.AsEditing());
}

void ChooseZoom(Editor& editor, int index) {
  editor.state.view.zoom = kZoomLevels[static_cast<std::size_t>(index)];
  ShowNewZoom(editor);
}

void StepZoom(Editor& editor, int step) {
  const bool changed = step < 0 ? ZoomIn(editor.state.view) : ZoomOut(editor.state.view);
  if (changed) ShowNewZoom(editor);
}

void ChooseGrid(Editor& editor, int index) {
  editor.state.view.gridSize = kGridSizes[static_cast<std::size_t>(index)];
  editor.ports.window.RedrawMap();
}

void SetFixedGrid(Editor& editor, bool isFixed) {
  editor.state.view.fixedGrid = isFixed;
  editor.ports.window.RedrawMap();
}

}  // namespace vesmora
