#include "app/hints.h"

#include <string_view>

namespace vesmora {
namespace {

std::string_view HeldModifiers(const Editor& editor) {
  if (editor.shiftDown && editor.ctrlDown) return "[Shift+Ctrl] ";
  if (editor.ctrlDown) return "[Ctrl] ";
  return editor.shiftDown ? "[Shift] " : "";
}

/// What the tool waits for while nothing is in progress.
std::string_view IdleHint(const Editor& editor) {
  switch (editor.document.toolIndex) {
    case ToolMode::kEdit:
      return editor.selection.Empty() ? "Click or drag to select" : "Drag inside the box to move";
    case ToolMode::kAddPolygon:
      return "Click the first corner";
    case ToolMode::kAddSpawn:
      return "Click to add a spawn";
    case ToolMode::kAddScenery:
      return "Click to add a scenery";
    case ToolMode::kAddCollider:
      return "Click to add a collider";
    case ToolMode::kAddWaypoint:
      return editor.selection.Empty() ? "Click to add a waypoint" : "Click to connect from here";
  }
  return "";
}

std::string_view ActivityHint(const Editor& editor) {
  switch (editor.activity.Kind()) {
    case ActivityKind::kNone:
      return IdleHint(editor);
    case ActivityKind::kBand:
      return "Release to select";
    case ActivityKind::kMove:
    case ActivityKind::kResize:
      return "Escape to cancel";
    case ActivityKind::kRotate:
      return "Shift for steps of 45 degrees";
    case ActivityKind::kPlacement:
      return "Click to drop, Escape to cancel";
    case ActivityKind::kTriangle:
      return editor.activity.PlacedCorners() == 1 ? "Click the second corner"
                                                  : "Click the third corner";
    case ActivityKind::kDirection:
      return "Click where the liana leads";
    case ActivityKind::kConnection:
      return "Click where the route leads";
  }
  return "";
}

}  // namespace

void WriteHint(std::string& line, const Editor& editor) {
  line = HeldModifiers(editor);
  line += editor.note.empty() ? ActivityHint(editor) : std::string_view(editor.note);
}

}  // namespace vesmora
