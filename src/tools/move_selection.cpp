#include "tools/move_selection.h"

#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr float kTextureWidth = 160;  // world units of one texture repeat
constexpr float kTextureHeight = 120;
constexpr double kTopStrip = 50;  // window units that the centring keeps free above

void MoveVertex(PolygonVertex& vertex, float dx, float dy, bool noTextureCorrection) {
  vertex.x += dx;
  vertex.y += dy;
  // A corner without a texture has a zero there and keeps it.
  if (noTextureCorrection || vertex.u == 0 || vertex.v == 0) return;
  vertex.u += dx / kTextureWidth;
  vertex.v += dy / kTextureHeight;
}

template <typename FixedPointRecord>
void MoveFixedPoint(FixedPointRecord& record, float dx, float dy) {
  record.x = RoundToInt32(record.x + dx * 256.0);
  record.y = RoundToInt32(record.y + dy * 256.0);
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
    MoveVertex(corners[vertex.corner], dx, dy, noTextureCorrection);
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
  selection.box.left += dx;
  selection.box.right += dx;
  selection.box.top += dy;
  selection.box.bottom += dy;
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
