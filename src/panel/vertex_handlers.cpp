#include <cmath>
#include <span>

#include "document/geometry.h"
#include "document/texture_mapping.h"
#include "panel/panel_handlers.h"
#include "view/palette.h"

namespace vesmora {
namespace {

constexpr Rgb kNeutralColor = {240, 240, 240};

std::span<const VertexReference> SelectedVertices(const Editing& editing) {
  return editing.selection.vertices.Used();
}

/// False, with the user told, when no corner is selected.
bool HasVertices(const Editing& editing) {
  if (!SelectedVertices(editing).empty()) return true;
  Refuse(editing, "You need select at least 1 vertice.");
  return false;
}

/// Calls `change` with each polygon that has a selected corner.
template <typename Change>
void ChangePolygons(Editing& editing, Change change) {
  const PolygonSlots polygons = SelectedPolygons(editing.selection);
  for (const int slot : polygons.Used()) change(editing.document.polygons[slot]);
}

/// Gives every corner of every polygon with a selected corner new coordinates.
template <typename SetTexture>
void ChangeTextures(Editing& editing, SetTexture setTexture) {
  if (!HasVertices(editing)) return;
  TakeUndoSnapshot(editing, "Texture");
  ChangePolygons(editing, [&](Polygon& polygon) {
    for (PolygonVertex& corner : polygon.vertices) setTexture(corner);
  });
  RedrawMap(editing);
}

/// Calls `change` with each selected corner.
template <typename Change>
void ChangeCorners(Editing& editing, Change change) {
  for (const VertexReference vertex : SelectedVertices(editing)) {
    change(RecordOf(editing.document.polygons, vertex));
  }
}

void MakePassable(Polygon& polygon) {
  for (Normal& normal : polygon.edges) {
    normal.x = 0;
    normal.y = 0;
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

void CBverticevari_Click(PanelEditing& editing) {
  const bool isEdit = editing.IsTool(ToolMode::kEdit);
  if (isEdit && !HasVertices(editing)) return;
  const Rgb shown = editing.panel.contents.CBverticevari.color.value_or(kNeutralColor);
  const auto chosen = editing.ports.dialogs.ChooseColor(RGBToLong(shown));
  if (!chosen) return;
  const Rgb color = LongToRGB(*chosen);
  if (isEdit) {
    TakeUndoSnapshot(editing, "Color");
    ChangeCorners(editing, [color](PolygonVertex& corner) { SetColor(corner.color, color); });
  } else {
    editing.tool.next.vertexColor = color;
  }
  RefreshAll(editing);
}

void CByhista_Click(PanelEditing& editing) {
  const auto count = static_cast<double>(SelectedVertices(editing).size());
  if (count < 2) {
    Refuse(editing, "You need select at least 2 vertices");
    return;
  }
  TakeUndoSnapshot(editing, "Connect");
  double sumX = 0;
  double sumY = 0;
  ChangeCorners(editing, [&](const PolygonVertex& corner) {
    sumX += corner.x;
    sumY += corner.y;
  });
  const auto meanX = static_cast<float>(sumX / count);
  const auto meanY = static_cast<float>(sumY / count);
  // One axis after the other: a coordinate that becomes 0 on the way counts as deleted.
  ChangeCorners(editing, [meanX](PolygonVertex& corner) {
    if (HasTexture(corner)) corner.u += (meanX - corner.x) / kTextureWidth;
    corner.x = meanX;
  });
  ChangeCorners(editing, [meanY](PolygonVertex& corner) {
    if (HasTexture(corner)) corner.v += (meanY - corner.y) / kTextureHeight;
    corner.y = meanY;
  });
  RefreshAll(editing);
}

void CBerota_Click(PanelEditing& editing) {
  if (SelectedVertices(editing).size() < 2) {
    Refuse(editing, "You need select at least 2 vertices.");
    return;
  }
  TakeUndoSnapshot(editing, "Disconnect");
  SpreadPattern pattern;
  ChangeCorners(editing, [&](PolygonVertex& corner) {
    const ScreenPoint pixels = pattern.Next();
    const WorldPoint offset{pixels.x / editing.view.zoom, pixels.y / editing.view.zoom};
    corner.x += offset.x;
    corner.y += offset.y;
    MoveTexture(corner, offset);
  });
  ClearSelection(editing);
  RefreshAll(editing);
}

void CBtexEiKorjaus_Click(PanelEditing& editing, bool isTicked) {
  editing.tool.next.noTextureCorrection = isTicked;
  editing.panel.contents.CBtexEiKorjaus.tick = isTicked ? Tick::kOn : Tick::kOff;
}

void CBtexPalauta_Click(PanelEditing& editing) {
  ChangeTextures(editing, [](PolygonVertex& corner) { MapTexture(corner, PlaceOf(corner)); });
}

void CBtexPoista_Click(PanelEditing& editing) {
  ChangeTextures(editing, [](PolygonVertex& corner) {
    corner.u = 0;
    corner.v = 0;
  });
}

void CBverticeLapi_Click(PanelEditing& editing, bool isTicked) {
  if (!HasVertices(editing)) return;
  // Until the next refresh the box shows what was clicked, confirmed or not.
  editing.panel.contents.CBverticeLapi.tick = isTicked ? Tick::kOn : Tick::kOff;
  if (isTicked &&
      !editing.ports.dialogs.Ask(
          {.text = "This is not RECOMMENED setting.\n"
                   "Players will disappear behind passable polygons and the official MapMaker "
                   "will not allow to edit these polygons.\n"
                   "Do you still want to use this?",
           .title = "Warning",
           .icon = MessageIcon::kQuestion})) {
    return;
  }
  TakeUndoSnapshot(editing, "Passable");
  ChangePolygons(editing, isTicked ? MakePassable : RecomputeNormals);
  RedrawMap(editing);
}

}  // namespace vesmora
