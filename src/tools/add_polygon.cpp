#include <optional>

#include "document/geometry.h"
#include "document/texture_mapping.h"
#include "tools/angles.h"
#include "tools/picking.h"
#include "tools/tool_handlers.h"
#include "view/palette.h"

namespace vesmora {
namespace {

const std::string kPolygonAction = "Polygon";

WorldPoint ExactPlace(const Editing& editing, const MouseInput& input) {
  return editing.view.ToWorld(input.x, input.y);
}

WorldPoint SnappedPlace(const Editing& editing, const MouseInput& input) {
  return PlacedPoint(editing, input.x, input.y);
}

bool IsConstructing(const Editing& editing) { return editing.activity.PlacedCorners() > 0; }

/// A corner of the polygon under construction, which is the last one.
PolygonVertex& Corner(Editing& editing, int number) {
  return editing.document.polygons.Last().vertices[static_cast<std::size_t>(number)];
}

/// The corner that comes next.
PolygonVertex& NextCorner(Editing& editing) {
  return Corner(editing, editing.activity.PlacedCorners());
}

void SetPlace(PolygonVertex& corner, WorldPoint place) {
  corner.x = place.x;
  corner.y = place.y;
}

std::optional<WorldPoint> HoveredPlace(const Editing& editing) {
  const auto& vertices = editing.selection.vertices;
  if (vertices.Empty()) return std::nullopt;
  return PlaceOf(RecordOf(editing.document.polygons, vertices[0]));
}

/// Recolours every corner on a spot, so that neighbours stay seamless.
void RecolourAt(Editing& editing, WorldPoint spot) {
  for (Polygon& polygon : editing.document.polygons.Used()) {
    for (PolygonVertex& vertex : polygon.vertices) {
      if (PlaceOf(vertex) == spot) SetColor(vertex.color, editing.tool.next.vertexColor);
    }
  }
}

/// The place at the mouse's distance from the previous corner, on the nearest of
/// the eight directions.
WorldPoint ConstrainCorner45(Editing& editing, const MouseInput& input) {
  const PolygonVertex& from = Corner(editing, editing.activity.PlacedCorners() - 1);
  const WorldPoint mouse = ExactPlace(editing, input);
  const PolarOffset offset = OffsetToPolar(from.x - mouse.x, from.y - mouse.y);
  const WorldPoint step = PolarToOffset(SnapAngle45(offset.angle) + kPi, offset.length, false);
  return {from.x + step.x, from.y + step.y};
}

/// Where the next corner goes before a hovered vertex may claim it.
WorldPoint ConstructionPlace(Editing& editing, const MouseInput& input) {
  return editing.shiftDown ? ConstrainCorner45(editing, input) : SnappedPlace(editing, input);
}

void PlaceFirstCorner(Editing& editing, const MouseInput& input) {
  auto& polygons = editing.document.polygons;
  editing.activity.Begin(ActivityKind::kTriangle, editing);
  TakeUndoSnapshot(editing, kPolygonAction);

  const std::optional<WorldPoint> hovered = HoveredPlace(editing);
  PolygonVertex corner{.x = 0,
                       .y = 0,
                       .z = 1,
                       .rhw = 1,
                       .color = {.blue = 0, .green = 0, .red = 0, .alpha = 255},
                       .u = 0,
                       .v = 0};
  SetPlace(corner, hovered && !SnapsToGrid(editing) ? *hovered : SnappedPlace(editing, input));
  SetColor(corner.color, editing.tool.next.vertexColor);
  MapTexture(corner, PlaceOf(corner));
  if (hovered) RecolourAt(editing, *hovered);
  polygons.TakeSlot().vertices.fill(corner);
  editing.activity.SetPlacedCorners(1);
}

/// A step that was taken while the triangle was built comes back without it: one more, from
/// which only the triangle is missing.
void TakeFinishingStep(Editing& editing) {
  const UndoJournal& journal = editing.journal;
  const bool isNewest = journal.undoAvailable >= 0 && journal.NewestAction() == kPolygonAction;
  if (!isNewest) TakeUndoSnapshot(editing, kPolygonAction);
}

void PlaceNextCorner(Editing& editing, const MouseInput& input) {
  const int number = editing.activity.PlacedCorners();
  if (number == 2) TakeFinishingStep(editing);
  PolygonVertex& corner = Corner(editing, number);
  SetPlace(corner, ConstructionPlace(editing, input));
  MapTexture(corner, ExactPlace(editing, input));
  const std::optional<WorldPoint> hovered = HoveredPlace(editing);
  if (hovered && !editing.shiftDown) {
    SetPlace(corner, *hovered);
    MapTexture(corner, *hovered);
    RecolourAt(editing, *hovered);
  }
  SetColor(corner.color, editing.tool.next.vertexColor);
  editing.activity.SetPlacedCorners(number + 1);
  if (number < 2) return;
  editing.activity.Forget();
  RecomputeNormals(editing.document.polygons.Last());
}

/// Finds the vertex under the pointer. Where Shift or the grid place corners no new
/// one is looked for, and one that the pointer has left is forgotten.
void Hover(Editing& editing, const MouseInput& input) {
  const SelectionBox box = HoverBox(editing.view, ExactPlace(editing, input));
  if (!editing.shiftDown && !SnapsToGrid(editing)) {
    SelectInBox(editing, box, false, SelectionKind::kFirstVertex);
    return;
  }
  const std::optional<WorldPoint> hovered = HoveredPlace(editing);
  if (!hovered || box.Contains(*hovered)) return;
  ClearLists(editing.selection);
  RefreshInfoPanel(editing);
}

void CarryNextCorner(Editing& editing, const MouseInput& input) {
  PolygonVertex& corner = NextCorner(editing);
  const std::optional<WorldPoint> hovered = HoveredPlace(editing);
  const bool sticks = hovered && !editing.shiftDown && !SnapsToGrid(editing);
  SetPlace(corner, sticks ? *hovered : ConstructionPlace(editing, input));
  SetColor(corner.color, editing.tool.next.vertexColor);
}

void PreviewFirstCorner(Editing& editing, const MouseInput& input) {
  MapDocument& document = editing.document;
  if (!editing.selection.Empty() || document.polygons.Full()) return;
  // With the grid it is the spawn table, not the polygons', that must have room: a quirk
  // that is kept.
  if (SnapsToGrid(editing) && document.spawns.Full()) return;
  SetPlace(document.polygons.Free().front().vertices[0], SnappedPlace(editing, input));
}

}  // namespace

void PressInAddPolygon(Editing& editing, const MouseInput& input) {
  if (IsConstructing(editing)) {
    PlaceNextCorner(editing, input);
  } else if (!editing.document.polygons.Full()) {
    PlaceFirstCorner(editing, input);
  } else {
    Refuse(editing, "Max number of polygons reached.");
    return;
  }
  if (!IsConstructing(editing)) PreviewFirstCorner(editing, input);
  RefreshAll(editing);
}

void MoveInAddPolygon(Editing& editing, const MouseInput& input) {
  Hover(editing, input);
  if (IsConstructing(editing)) {
    CarryNextCorner(editing, input);
  } else {
    PreviewFirstCorner(editing, input);
  }
  RedrawMap(editing);
}

}  // namespace vesmora
