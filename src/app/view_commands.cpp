#include "app/view_commands.h"

#include <array>
#include <charconv>
#include <string>

#include "tools/mouse_dispatch.h"

namespace vesmora {
namespace {

/// Both coordinates with one decimal, with a point whatever the locale. In place: this comes
/// with every mouse move.
void ShowPosition(std::string& text, WorldPoint place) {
  std::array<char, 128> digits{};
  const auto add = [&digits](char* at, float value) {
    return std::to_chars(at, digits.data() + digits.size(), value, std::chars_format::fixed, 1).ptr;
  };
  char* end = add(digits.data(), place.x);
  *end++ = ',';
  *end++ = ' ';
  end = add(end, place.y);
  text.assign(digits.data(), end);
}

void ForgetPointer(Editor& editor) {
  editor.pointerText.clear();
  ForgetHover(editor);
}

/// As if the pointer had left the map: what it pointed at is elsewhere now.
void ShowNewZoom(Editor& editor) {
  ForgetPointer(editor);
  editor.tool.hidesNext = true;
  RedrawMap(editor);
}

}  // namespace

void PointAt(Editor& editor, const MouseInput& input) {
  MoveMouse(editor, input);
  ShowPosition(editor.pointerText, editor.view.ToWorld(input.x, input.y));
}

void TurnWheel(Editor& editor, int delta) {
  if (ZoomByWheel(editor.view, delta)) ShowNewZoom(editor);
}

void LeaveMap(Editor& editor) {
  ForgetPointer(editor);
  editor.view.wheelRest = 0;
}

void ChooseZoom(Editor& editor, int index) {
  editor.view.zoom = kZoomLevels[static_cast<std::size_t>(index)];
  ShowNewZoom(editor);
}

void StepZoom(Editor& editor, int step) {
  if (StepZoomLevel(editor.view, step)) ShowNewZoom(editor);
}

void ChooseGrid(Editor& editor, int index) {
  editor.view.gridSize = kGridSizes[static_cast<std::size_t>(index)];
  RedrawMap(editor);
}

void SetFixedGrid(Editor& editor, bool isFixed) {
  editor.view.fixedGrid = isFixed;
  RedrawMap(editor);
}

}  // namespace vesmora
