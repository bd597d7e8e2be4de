#include "tools/move_selection.h"

#include "document/numbers.h"
#include "tools/texture_mapping.h"

namespace vesmora {
namespace {

constexpr double kTopStrip = 50;  // window units that the centring keeps free above

template <typename FixedPointRecord>
void MoveFixedPoint(FixedPointRecord& record, float dx, float dy) {
  record.x = RoundToInt32(record.x + dx * 256.0);
  record.y = RoundToInt32(record.y + dy * 256.0);
}

void Shift(float& coordinate, float offset) {
  if (coordinate != kUnsetCoordinate) coordinate += offset;
}

template <typename Record>
void MoveFloat(Record& record, float dx, float dy) {
  record.x += dx;
  record.y += dy;
}

}  // namespace

void MoveSelection(const Editing& editing, float dx, float dy) {
  MapDocument& document = editing.state.document;
  Selection& selection = editing.state.selection;
  if (!selection.moveSnapshotTaken) TakeUndoSnapshot(editing, "Move");
  selection.moveSnapshotTaken = true;

  const bool noTextureCorrection = editing.state.tool.next.noTextureCorrection;
  for (const VertexReference vertex : selection.vertices.Items()) {
    auto& corners = document.polygons[static_cast<std::size_t>(vertex.polygon)].vertices;
    PolygonVertex& corner = corners[vertex.corner];
    if (noTextureCorrection) {
      MoveFloat(corner, dx, dy);
    } else {
      MoveCorner(corner, dx, dy);
    }
  }
  for (const std::uint8_t index : selection.spawns.Items()) {
    MoveFixedPoint(document.spawns[index], dx, dy);
  }
  for (const std::uint8_t index : selection.sceneries.Items()) {
    MoveFloat(document.sceneries[index], dx, dy);
  }
  for (const std::int16_t index : selection.waypoints.Items()) {
    MoveFixedPoint(document.waypoints[static_cast<std::size_t>(index)], dx, dy);
  }
  for (const std::uint8_t index : selection.colliders.Items()) {
    MoveFloat(document.colliders[index], dx, dy);
  }
  Shift(selection.box.left, dx);
  Shift(selection.box.right, dx);
  Shift(selection.box.top, dy);
  Shift(selection.box.bottom, dy);
}

void CenterSelection(const Editing& editing) {
  const SelectionBox& box = editing.state.selection.box;
  const ViewTransform& view = editing.state.view;
  const double left =
      (box.left - box.right) * view.zoom / 2 + (view.area.width - view.area.rightPanelWidth) / 2.0;
  const double top = (box.top - box.bottom) * view.zoom / 2 + (view.area.height - kTopStrip) / 2.0;
  const double targetX = RoundToInt32(view.LaskeRuutu2X(static_cast<float>(left)));
  const double targetY = RoundToInt32(view.LaskeRuutu2Y(static_cast<float>(top)));
  MoveSelection(editing, static_cast<float>(targetX - box.left),
                static_cast<float>(targetY - box.top));
}

}  // namespace vesmora
