#include "panel/vertex_handlers.h"

#include <cmath>

#include "document/geometry.h"
#include "tools/texture_mapping.h"
#include "view/palette.h"

namespace vesmora {
namespace {

constexpr Rgb kNeutralColor = {240, 240, 240};

Polygon& PolygonOf(const PanelContext& context, const VertexReference& vertex) {
  return context.editing.state.document.polygons[static_cast<std::size_t>(vertex.polygon)];
}

PolygonVertex& CornerOf(const PanelContext& context, const VertexReference& vertex) {
  return PolygonOf(context, vertex).vertices[vertex.corner];
}

auto SelectedVertices(const PanelContext& context) {
  return context.editing.state.selection.vertices.Items();
}

/// False, with the user told, when no corner is selected.
bool HasVertices(const PanelContext& context) {
  if (!SelectedVertices(context).empty()) return true;
  Refuse(context.editing, "You need select at least 1 vertice.");
  return false;
}

/// Gives every corner of every polygon with a selected corner new coordinates.
template <typename SetTexture>
void ChangeTextures(const PanelContext& context, SetTexture setTexture) {
  if (context.panel.panelRefreshing || !HasVertices(context)) return;
  TakeUndoSnapshot(context.editing, "Texture");
  for (const VertexReference& vertex : SelectedVertices(context)) {
    for (PolygonVertex& corner : PolygonOf(context, vertex).vertices) setTexture(corner);
  }
  context.editing.ports.display.RedrawMap();
}

void MakeSolid(const PanelContext& context) {
  for (const VertexReference& vertex : SelectedVertices(context)) {
    RecomputeNormals(context.editing.state.document, vertex.polygon);
  }
}

void MakePassable(const PanelContext& context) {
  for (const VertexReference& vertex : SelectedVertices(context)) {
    auto& normals =
        context.editing.state.document.normals[static_cast<std::size_t>(vertex.polygon)];
    for (Normal& normal : normals.edges) {
      normal.x = 0;
      normal.y = 0;
    }
  }
}

/// The fixed pattern in which Disconnect pulls corners apart, in window pixels.
class SpreadPattern {
 public:
  ScreenPoint Next() {
    const ScreenPoint offset{reach_, std::abs(reach_) / 2 * row_};
    reach_ = -std::copysign(std::abs(reach_) + 6, reach_);
    row_ = (row_ == 1 ? -2 : row_) + 1;
    return offset;
  }

 private:
  float reach_ = 1;
  float row_ = -1;
};

}  // namespace

void CBverticevari_Click(const PanelContext& context) {
  if (context.panel.panelRefreshing) return;
  EditingState& state = context.editing.state;
  const bool isEdit = state.document.toolIndex == ToolMode::kEdit;
  if (isEdit && !HasVertices(context)) return;
  const Rgb shown = context.panel.contents.CBverticevari.color.value_or(kNeutralColor);
  const auto chosen = context.editing.ports.dialogs.ChooseColor(RGBToLong(shown));
  if (!chosen) return;
  const Rgb color = LongToRGB(*chosen);
  if (isEdit) {
    TakeUndoSnapshot(context.editing, "Color");
    for (const VertexReference& vertex : SelectedVertices(context)) {
      SetColor(CornerOf(context, vertex).color, color);
    }
  } else {
    state.tool.next.vertexColor = color;
  }
  RefreshAll(context.editing);
}

void CByhista_Click(const PanelContext& context) {
  if (context.panel.panelRefreshing) return;
  const auto vertices = SelectedVertices(context);
  if (vertices.size() < 2) {
    Refuse(context.editing, "You need select at least 2 vertices");
    return;
  }
  TakeUndoSnapshot(context.editing, "Connect");
  double sumX = 0;
  double sumY = 0;
  for (const VertexReference& vertex : vertices) {
    sumX += CornerOf(context, vertex).x;
    sumY += CornerOf(context, vertex).y;
  }
  const auto meanX = static_cast<float>(sumX / static_cast<double>(vertices.size()));
  const auto meanY = static_cast<float>(sumY / static_cast<double>(vertices.size()));
  // One axis after the other: a coordinate that becomes 0 on the way counts as deleted.
  for (const VertexReference& vertex : vertices) {
    PolygonVertex& corner = CornerOf(context, vertex);
    if (HasTexture(corner)) corner.u += (meanX - corner.x) / kTextureWidth;
    corner.x = meanX;
  }
  for (const VertexReference& vertex : vertices) {
    PolygonVertex& corner = CornerOf(context, vertex);
    if (HasTexture(corner)) corner.v += (meanY - corner.y) / kTextureHeight;
    corner.y = meanY;
  }
  RefreshAll(context.editing);
}

void CBerota_Click(const PanelContext& context) {
  if (context.panel.panelRefreshing) return;
  const auto vertices = SelectedVertices(context);
  if (vertices.size() < 2) {
    Refuse(context.editing, "You need select at least 2 vertices.");
    return;
  }
  TakeUndoSnapshot(context.editing, "Disconnect");
  const float zoom = context.editing.state.view.zoom;
  SpreadPattern pattern;
  for (const VertexReference& vertex : vertices) {
    const ScreenPoint offset = pattern.Next();
    MoveCorner(CornerOf(context, vertex), offset.x / zoom, offset.y / zoom);
  }
  ClearSelection(context.editing.state.selection, context.editing.ports.display);
  context.editing.ports.display.RedrawMap();
  context.editing.ports.display.RefreshInfoPanel();
}

void CBtexEiKorjaus_Click(const PanelContext& context, bool isTicked) {
  if (context.panel.panelRefreshing) return;
  context.editing.state.tool.next.noTextureCorrection = isTicked;
  context.panel.contents.CBtexEiKorjaus.tick = isTicked ? Tick::kOn : Tick::kOff;
}

void CBtexPalauta_Click(const PanelContext& context) { ChangeTextures(context, MapToWorld); }

void CBtexPoista_Click(const PanelContext& context) {
  ChangeTextures(context, [](PolygonVertex& corner) {
    corner.u = 0;
    corner.v = 0;
  });
}

void CBverticeLapi_Click(const PanelContext& context, bool isTicked) {
  if (context.panel.panelRefreshing || !HasVertices(context)) return;
  // Until the next refresh the box shows what was clicked, confirmed or not.
  context.panel.contents.CBverticeLapi.tick = isTicked ? Tick::kOn : Tick::kOff;
  if (isTicked &&
      !context.editing.ports.dialogs.Ask(
          {.text = "This is not RECOMMENED setting.\n"
                   "Players will disappear behind passable polygons and the official MapMaker "
                   "will not allow to edit these polygons.\n"
                   "Do you still want to use this?",
           .title = "Warning",
           .icon = MessageIcon::kQuestion})) {
    return;
  }
  TakeUndoSnapshot(context.editing, "Passable");
  if (isTicked) {
    MakePassable(context);
  } else {
    MakeSolid(context);
  }
  context.editing.ports.display.RedrawMap();
}

}  // namespace vesmora
