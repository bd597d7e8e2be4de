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
      return editor.selection.Empty() ? "Click or drag to select" : "Drag the box to move";
    case ToolMode::kAddPolygon:
      return "Click the first corner";
    case ToolMode::kAddSpawn:
      return "Click to add a spawn";
    case ToolMode::kAddScenery:
      return "Click to add a scenery";
    case ToolMode::kAddCollider:
      return "Click to add a collider";
    case ToolMode::kAddWaypoint:
      return editor.selection.Empty() ? "Click to add a waypoint" : "Click to connect";
  }
  return "";
}

std::string_view ActivityHint(const Editor& editor) {
  switch (editor.activity.Kind()) {
    case ActivityKind::kNone:
      return IdleHint(editor);
    case ActivityKind::kBand:
      return editor.selection.box.Complete() ? "Release to select" : "Release to deselect";
    case ActivityKind::kMove:
    case ActivityKind::kResize:
      return "Escape to cancel";
    case ActivityKind::kRotate:
      return "Shift: by 45 degrees";
    case ActivityKind::kPlacement:
      return "Click to drop, Escape to cancel";
    case ActivityKind::kTriangle:
      return editor.activity.PlacedCorners() == 1 ? "Click the second corner"
                                                  : "Click the third corner";
    case ActivityKind::kDirection:
      return "Click its direction";
    case ActivityKind::kConnection:
      return "Click the next waypoint";
  }
  return "";
}

}  // namespace

void WriteHint(std::string& line, const Editor& editor) {
  line = HeldModifiers(editor);
  line += editor.note.empty() ? ActivityHint(editor) : std::string_view(editor.note);
}

}  // namespace vesmora
