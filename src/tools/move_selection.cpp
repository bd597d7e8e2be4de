#include "tools/move_selection.h"

#include <type_traits>

#include "document/numbers.h"
#include "document/texture_mapping.h"

namespace vesmora {
namespace {

constexpr double kTopStrip = 50;  // window units that the centring keeps free above

/// Sceneries and colliders; spawn points and waypoints are kept in fixed point.
template <typename Record>
void Shift(Record& record, WorldPoint offset) {
  record.x += offset.x;
  record.y += offset.y;
}

template <typename Record>
void ShiftFixedPoint(Record& record, WorldPoint offset) {
  record.x = RoundToInt32(record.x + offset.x * 256.0);
  record.y = RoundToInt32(record.y + offset.y * 256.0);
}
void Shift(SpawnPoint& spawn, WorldPoint offset) { ShiftFixedPoint(spawn, offset); }
void Shift(Waypoint& waypoint, WorldPoint offset) { ShiftFixedPoint(waypoint, offset); }

void ShiftEdge(float& edge, float offset) {
  if (edge != kUnsetCoordinate) edge += offset;
}

}  // namespace

void ShiftSelected(MapDocument& document, Selection& selection, WorldPoint offset,
                   bool keepsTexture) {
  VisitSelected(document, selection, [&]<typename Record>(Record& record) {
    if constexpr (std::is_same_v<Record, PolygonVertex>) {
      if (!keepsTexture) MoveTexture(record, offset);
    }
    Shift(record, offset);
  });
  ShiftEdge(selection.box.left, offset.x);
  ShiftEdge(selection.box.right, offset.x);
  ShiftEdge(selection.box.top, offset.y);
  ShiftEdge(selection.box.bottom, offset.y);
}

void MoveSelection(Editing& editing, WorldPoint offset) {
  if (!editing.selection.moveSnapshotTaken) TakeUndoSnapshot(editing, "Move");
  editing.selection.moveSnapshotTaken = true;
  ShiftSelected(editing.document, editing.selection, offset, editing.tool.next.noTextureCorrection);
}

void CenterSelection(Editing& editing) {
  const SelectionBox& box = editing.selection.box;
  const ViewTransform& view = editing.view;
  const double left =
      (box.left - box.right) * view.zoom / 2 + (view.area.width - view.area.rightPanelWidth) / 2.0;
  const double top = (box.top - box.bottom) * view.zoom / 2 + (view.area.height - kTopStrip) / 2.0;
  const double targetX = RoundToInt32(view.LaskeRuutu2X(static_cast<float>(left)));
  const double targetY = RoundToInt32(view.LaskeRuutu2Y(static_cast<float>(top)));
  MoveSelection(editing,
                {static_cast<float>(targetX - box.left), static_cast<float>(targetY - box.top)});
}

void BeginPlacement(Editing& editing) {
  CenterSelection(editing);
  editing.activity.Begin(ActivityKind::kPlacement, editing);
}

void CarryAlong(Editing& editing, const MouseInput& input) {
  const WorldPoint mouse = editing.view.ToWorld(input.x, input.y);
  const WorldPoint center = editing.selection.box.Center();
  MoveSelection(editing, {mouse.x - center.x, mouse.y - center.y});
  RedrawMap(editing);
}

}  // namespace vesmora
