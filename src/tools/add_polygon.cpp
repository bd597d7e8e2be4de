#include "tools/add_polygon.h"

#include "document/geometry.h"
#include "tools/angles.h"
#include "tools/picking.h"
#include "tools/texture_mapping.h"
#include "tools/tool_change.h"
#include "view/palette.h"

namespace vesmora {
namespace {

const std::string kPolygonAction = "Polygon";

struct CornerPlace {
  float x;
  float y;
};

CornerPlace ExactPlace(const EditingState& state, const MouseInput& input) {
  return {state.view.LaskeRuutu2X(input.x), state.view.LaskeRuutu2Y(input.y)};
}

CornerPlace SnappedPlace(const EditingState& state, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(state, input.x, input.y);
  return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

Polygon& LastPolygon(MapDocument& document) {
  return document.polygons[static_cast<std::size_t>(document.lastPolygon)];
}

/// The corner that comes next of the polygon under construction.
PolygonVertex& NextCorner(EditingState& state) {
  return LastPolygon(state.document).vertices[static_cast<std::size_t>(state.tool.value)];
}

const PolygonVertex* HoveredVertex(const EditingState& state) {
  const auto& vertices = state.selection.vertices;
  if (vertices.Empty()) return nullptr;
  const VertexReference vertex = vertices.Items().front();
  return &state.document.polygons[static_cast<std::size_t>(vertex.polygon)].vertices[vertex.corner];
}

/// Recolours every corner on the hovered one's spot, so that neighbours stay seamless.
void RecolourHovered(EditingState& state) {
  const PolygonVertex* hovered = HoveredVertex(state);
  if (hovered == nullptr) return;
  const CornerPlace spot{hovered->x, hovered->y};
  const auto used = static_cast<std::size_t>(state.document.lastPolygon + 1);
  for (Polygon& polygon : std::span(state.document.polygons).first(used)) {
    for (PolygonVertex& vertex : polygon.vertices) {
      if (vertex.x == spot.x && vertex.y == spot.y)
        SetColor(vertex.color, state.tool.next.vertexColor);
    }
  }
}

/// The place at the mouse's distance from the previous corner, on the nearest of
/// the eight directions.
CornerPlace ConstrainCorner45(EditingState& state, const MouseInput& input) {
  const auto previous = static_cast<std::size_t>(state.tool.value - 1);
  const PolygonVertex& from = LastPolygon(state.document).vertices[previous];
  const CornerPlace mouse = ExactPlace(state, input);
  const PolarOffset offset = OffsetToPolar(from.x - mouse.x, from.y - mouse.y);
  const WorldOffset step = PolarToOffset(SnapAngle45(offset.angle) + kPi, offset.length, false);
  return {from.x + step.x, from.y + step.y};
}

/// Where the next corner goes before a hovered vertex may claim it.
CornerPlace ConstructionPlace(EditingState& state, const MouseInput& input) {
  return state.shiftDown ? ConstrainCorner45(state, input) : SnappedPlace(state, input);
}

void PlaceFirstCorner(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (document.lastPolygon >= kPolygonCapacity - 1) {
    Refuse(editing, "Max number of polygons reached.");
    return;
  }
  state.gesture.Begin(state);
  TakeUndoSnapshot(editing, kPolygonAction);

  CornerPlace place = SnappedPlace(state, input);
  const PolygonVertex* hovered = HoveredVertex(state);
  if (hovered != nullptr && !SnapsToGrid(state)) place = {hovered->x, hovered->y};
  PolygonVertex corner{.x = place.x,
                       .y = place.y,
                       .z = 1,
                       .rhw = 1,
                       .color = {.blue = 0, .green = 0, .red = 0, .alpha = 255},
                       .u = 0,
                       .v = 0};
  SetColor(corner.color, state.tool.next.vertexColor);
  MapToWorld(corner);
  RecolourHovered(state);
  ++document.lastPolygon;
  LastPolygon(document).vertices.fill(corner);
  state.tool.value = 1;
}

/// A step that was taken while the triangle was built comes back without it: one more, from
/// which only the triangle is missing.
void TakeFinishingStep(const Editing& editing) {
  const UndoJournal& journal = editing.state.journal;
  const bool isNewest = journal.undoAvailable >= 0 && journal.NewestAction() == kPolygonAction;
  if (!isNewest) TakeUndoSnapshot(editing, kPolygonAction);
}

void PlaceNextCorner(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  if (state.tool.value == 2) TakeFinishingStep(editing);
  PolygonVertex& corner = NextCorner(state);
  const CornerPlace place = ConstructionPlace(state, input);
  corner.x = place.x;
  corner.y = place.y;
  const CornerPlace mouse = ExactPlace(state, input);
  MapToPlace(corner, mouse.x, mouse.y);
  const PolygonVertex* hovered = HoveredVertex(state);
  if (hovered != nullptr && !state.shiftDown) {
    corner.x = hovered->x;
    corner.y = hovered->y;
    MapToWorld(corner);
    RecolourHovered(state);
  }
  SetColor(corner.color, state.tool.next.vertexColor);
  if (++state.tool.value < 3) return;
  state.tool.value = 0;
  state.gesture.End();
  RecomputeNormals(state.document, state.document.lastPolygon);
}

/// Finds the vertex under the pointer. Where Shift or the grid place corners no new
/// one is looked for, and one that the pointer has left is forgotten.
void Hover(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  const CornerPlace mouse = ExactPlace(state, input);
  const float reach = HoverReach(state.view);
  const PolygonVertex* hovered = HoveredVertex(state);
  const bool looks = !state.shiftDown && !SnapsToGrid(state);
  const bool hasLeft = hovered != nullptr && (std::abs(hovered->x - mouse.x) > reach ||
                                              std::abs(hovered->y - mouse.y) > reach);
  if (!looks && !hasLeft) return;
  if (looks) {
    SelectInBox(editing,
                {.left = mouse.x - reach,
                 .right = mouse.x + reach,
                 .top = mouse.y - reach,
                 .bottom = mouse.y + reach},
                false, SelectionKind::kFirstVertex);
    return;
  }
  ClearLists(state.selection);
  editing.ports.display.RefreshInfoPanel();
}

void FollowPointer(EditingState& state, const MouseInput& input) {
  PolygonVertex& corner = NextCorner(state);
  CornerPlace place = ConstructionPlace(state, input);
  const PolygonVertex* hovered = HoveredVertex(state);
  if (hovered != nullptr && !state.shiftDown && !SnapsToGrid(state)) {
    place = {hovered->x, hovered->y};
  }
  corner.x = place.x;
  corner.y = place.y;
  SetColor(corner.color, state.tool.next.vertexColor);
}

void FollowAsPreview(EditingState& state, const MouseInput& input) {
  const MapDocument& document = state.document;
  if (!state.selection.Empty() || document.lastPolygon >= kPolygonCapacity - 1) return;
  // With the grid it is the spawn table, not the polygons', that must have room: a quirk
  // that is kept.
  if (SnapsToGrid(state) && document.lastSpawn >= kSpawnCapacity - 1) return;
  const CornerPlace place = SnappedPlace(state, input);
  PolygonVertex& corner =
      state.document.polygons[static_cast<std::size_t>(document.lastPolygon + 1)].vertices[0];
  corner.x = place.x;
  corner.y = place.y;
}

}  // namespace

void PressInAddPolygon(const Editing& editing, const MouseInput& input) {
  if (IsConstructing(editing.state)) {
    PlaceNextCorner(editing, input);
  } else {
    PlaceFirstCorner(editing, input);
  }
  if (!IsConstructing(editing.state)) FollowAsPreview(editing.state, input);
  RefreshAll(editing);
}

void MoveInAddPolygon(const Editing& editing, const MouseInput& input) {
  Hover(editing, input);
  if (IsConstructing(editing.state)) {
    FollowPointer(editing.state, input);
  } else {
    FollowAsPreview(editing.state, input);
  }
  editing.ports.display.RedrawMap();
}

}  // namespace vesmora
