#include "view/draw_map.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>
#include <type_traits>

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "document/texture_mapping.h"
#include "view/palette.h"
#include "view/scenery_shape.h"
#include "view/world_painter.h"

namespace vesmora {
namespace {

constexpr std::int16_t kMarkRadius = 2;  // pixels
constexpr std::int16_t kSpawnRadius = 10;
constexpr std::int16_t kFirstSpawnRadius = 5;
constexpr std::int16_t kTextureDotRadius = 1;
constexpr float kWaypointHalfSide = 7;  // world units
constexpr float kHandleHalfSide = 3;
constexpr int kGridRightMargin = 150;  // pixels

/// The used slots of a table and, where a tool shows one, the next slot behind them.
template <typename Record, int kSlots>
std::span<const Record> Shown(const Table<Record, kSlots>& table, bool withNext) {
  const auto count = static_cast<std::size_t>(table.Count());
  return std::span(table.slots).first(withNext && !table.Full() ? count + 1 : count);
}

/// One redraw: the scene, and what it is painted with.
struct Drawing {
  const MapScene& scene;
  MapDocument& document = scene.document;
  const ViewTransform& view = scene.view;
  WorldPainter painter;

  bool IsTool(ToolMode tool) const { return document.toolIndex == tool; }
  bool Shows(ShowFlag kind) const { return scene.show.Shows(kind); }
  /// Whether what `tool` would place next is drawn.
  bool ShowsNext(ToolMode tool) const { return IsTool(tool) && scene.tool.showsNext; }
};

void DrawMark(Drawing& drawing, WorldPoint place) {
  drawing.painter.DrawWorldCircle(place.x, place.y, kMarkRadius, kMarkColor);
}

void DrawWorldGrid(Drawing& drawing) {
  const std::int64_t step = drawing.view.gridSize;
  // Starting on an even multiple keeps the lighter lines on even multiples.
  const auto firstLine = [step](float edge) {
    const double whole = RoundToInt32(edge);
    return 2 * step * RoundToInt32(whole / static_cast<double>(2 * step));
  };
  const auto width = static_cast<float>(drawing.view.area.width);
  const auto height = static_cast<float>(drawing.view.area.height);
  const float left = drawing.view.LaskeRuutu2X(0);
  const float right = drawing.view.LaskeRuutu2X(width);
  const float top = drawing.view.LaskeRuutu2Y(0);
  const float bottom = drawing.view.LaskeRuutu2Y(height);

  bool light = true;
  const std::int64_t lastX = RoundToInt32(drawing.view.LaskeRuutu2X(width - kGridRightMargin));
  for (std::int64_t x = firstLine(left); x <= lastX; x += step, light = !light) {
    drawing.painter.SetColor(light ? kLightGridColor : kDarkGridColor);
    drawing.painter.DrawWorldLine(static_cast<float>(x), top, static_cast<float>(x), bottom, false);
  }
  light = true;
  const std::int64_t lastY = RoundToInt32(bottom);
  for (std::int64_t y = firstLine(top); y <= lastY; y += step, light = !light) {
    drawing.painter.SetColor(light ? kLightGridColor : kDarkGridColor);
    drawing.painter.DrawWorldLine(left, static_cast<float>(y), right, static_cast<float>(y), false);
  }
}

void DrawFixedGrid(Drawing& drawing) {
  const int spacing = std::max(1, RoundToInt32(drawing.view.gridSize * drawing.view.zoom));
  const auto width = static_cast<float>(drawing.view.area.width);
  const auto height = static_cast<float>(drawing.view.area.height);
  bool light = true;
  for (int p = 0; p <= std::max(drawing.view.area.width, drawing.view.area.height);
       p += spacing, light = !light) {
    const auto position = static_cast<float>(p);
    drawing.painter.SetColor(light ? kLightGridColor : kDarkGridColor);
    drawing.painter.DrawScreenLine({0, position}, {width, position});
    drawing.painter.DrawScreenLine({position, 0}, {position, height});
  }
}

void DrawGrid(Drawing& drawing) {
  if (drawing.view.gridSize < 1) return;
  if (drawing.view.fixedGrid) {
    DrawFixedGrid(drawing);
  } else {
    DrawWorldGrid(drawing);
  }
}

void DrawPolygons(Drawing& drawing) {
  if (!drawing.Shows(ShowFlag::kPolygons)) return;
  for (const Polygon& polygon : drawing.document.polygons.Used()) {
    const auto& corners = polygon.vertices;
    for (std::size_t k = 0; k < corners.size(); ++k) {
      const PolygonVertex& from = corners[k];
      const PolygonVertex& to = corners[(k + 1) % corners.size()];
      drawing.painter.SetStyle(IsPassable(polygon.edges[k]) ? PenStyle::kDot : PenStyle::kSolid);
      drawing.painter.SetColor(ToRgb(from.color));
      drawing.painter.DrawWorldLine(from.x, from.y, to.x, to.y, false);
    }
  }
}

void DrawConstructionMark(Drawing& drawing) {
  drawing.painter.SetStyle(PenStyle::kDash);
  if (!drawing.ShowsNext(ToolMode::kAddPolygon) || !drawing.scene.selection.Empty()) return;
  const int polygon =
      drawing.document.polygons.last + (drawing.scene.tool.placedCorners == 0 ? 1 : 0);
  if (polygon < 0 || polygon >= kPolygonCapacity) return;
  const auto corner = static_cast<std::size_t>(drawing.scene.tool.placedCorners);
  DrawMark(drawing, PlaceOf(drawing.document.polygons[polygon].vertices[corner]));
}

void DrawSpawn(Drawing& drawing, const SpawnPoint& spawn, Rgb color, bool isFirstOfTeam) {
  const auto [x, y] = PlaceOf(spawn);
  drawing.painter.DrawWorldCircle(x, y, kSpawnRadius, color);
  if (isFirstOfTeam) drawing.painter.DrawWorldCircle(x, y, kFirstSpawnRadius, color);
}

void DrawSpawns(Drawing& drawing) {
  drawing.painter.SetStyle(PenStyle::kSolid);
  if (!drawing.Shows(ShowFlag::kSpawns)) return;
  bool isFirstRed = true;
  bool isFirstBlue = true;
  for (const SpawnPoint& spawn :
       Shown(drawing.document.spawns, drawing.ShowsNext(ToolMode::kAddSpawn))) {
    if (spawn.team == kNormalTeam) {
      DrawSpawn(drawing, spawn, kNormalSpawnColor, false);
    } else if (spawn.team == kRedTeam) {
      DrawSpawn(drawing, spawn, kRedSpawnColor, isFirstRed);
      isFirstRed = false;
    } else if (spawn.team == kBlueTeam) {
      DrawSpawn(drawing, spawn, kBlueSpawnColor, isFirstBlue);
      isFirstBlue = false;
    }
  }
}

void DrawSceneryOutline(Drawing& drawing, const SceneryObject& scenery) {
  const auto [a, b] = SidesOf(scenery);
  const auto [x, y] = PlaceOf(scenery);
  drawing.painter.DrawWorldLine(x, y, x + a.x, y + a.y, false);
  drawing.painter.DrawWorldLine(x, y, x + b.x, y + b.y, false);
  drawing.painter.DrawWorldLine(x + a.x, y + a.y, x + a.x + b.x, y + a.y + b.y, false);
  drawing.painter.DrawWorldLine(x + b.x, y + b.y, x + a.x + b.x, y + a.y + b.y, false);
}

void DrawSceneries(Drawing& drawing) {
  if (!drawing.Shows(ShowFlag::kSceneries)) return;
  drawing.painter.SetColor(kSceneryColor);
  for (const SceneryObject& scenery :
       Shown(drawing.document.sceneries, drawing.ShowsNext(ToolMode::kAddScenery))) {
    const auto [x, y] = PlaceOf(scenery);
    drawing.painter.DrawWorldCircle(x, y, kMarkRadius, kSceneryColor);
    if (scenery.type < kSceneryTypes.size()) DrawSceneryOutline(drawing, scenery);
  }
}

void DrawColliders(Drawing& drawing) {
  if (!drawing.Shows(ShowFlag::kColliders)) return;
  for (const Collider& collider :
       Shown(drawing.document.colliders, drawing.ShowsNext(ToolMode::kAddCollider))) {
    drawing.painter.DrawWorldCircle(collider.x, collider.y,
                                    RoundToInt16(collider.radius / 2 * drawing.view.zoom),
                                    kColliderColor);
  }
}

void DrawWaypointMark(Drawing& drawing, const Waypoint& waypoint) {
  const auto [x, y] = PlaceOf(waypoint);
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), waypoint.path).ptr;
  drawing.painter.DrawLabel(x, y, {digits.data(), end});
  drawing.painter.DrawWorldSquare(x, y, kWaypointHalfSide);
}

void DrawConnections(Drawing& drawing, Waypoint& waypoint) {
  // A count of 21 is left as it is, but no more than the 20 slots are read.
  if (waypoint.connectionCount > kConnectionCapacity + 1) {
    waypoint.connectionCount = kConnectionCapacity;
  }
  drawing.painter.SetStyle(PenStyle::kDot);
  const int count = std::clamp(waypoint.connectionCount, 0, kConnectionCapacity);
  for (int j = 0; j < count; ++j) {
    const std::int32_t id = waypoint.connections[static_cast<std::size_t>(j)];
    if (id < 1 || id > kWaypointCapacity) continue;
    const Waypoint& target = drawing.document.waypoints[id - 1];
    Rgb color = kConnectionColor;
    for (std::size_t i = 0; i < target.botSettings.size(); ++i) {
      if (target.botSettings[i] == 1) color = kBotSettingColors[i];
    }
    drawing.painter.SetColor(color);
    // Each route starts one unit lower, so that parallel ones can be told apart.
    const WorldPoint from = PlaceOf(waypoint);
    const WorldPoint to = PlaceOf(target);
    drawing.painter.PiirraReitti(from.x, from.y + static_cast<float>(j), to.x, to.y);
  }
}

void DrawWaypoints(Drawing& drawing) {
  if (!drawing.Shows(ShowFlag::kWaypoints)) return;
  for (int slot = 0; slot <= drawing.document.waypoints.last; ++slot) {
    Waypoint& waypoint = drawing.document.waypoints[slot];
    if (!drawing.scene.show.ShowsPath(waypoint.path)) continue;
    drawing.painter.SetStyle(PenStyle::kSolid);
    drawing.painter.SetColor(waypoint.path == 1 ? kFirstPathColor : kOtherPathColor);
    DrawWaypointMark(drawing, waypoint);
    DrawConnections(drawing, waypoint);
    if (slot == drawing.scene.tool.connectionFrom) {
      drawing.painter.SetStyle(PenStyle::kDot);
      drawing.painter.SetColor(kPendingConnectionColor);
      const WorldPoint from = PlaceOf(waypoint);
      drawing.painter.PiirraReitti(from.x, from.y, static_cast<float>(drawing.scene.tool.mouseX),
                                   static_cast<float>(drawing.scene.tool.mouseY));
    }
  }
}

void DrawSelectionMarks(Drawing& drawing) {
  drawing.painter.SetStyle(PenStyle::kSolid);
  VisitSelected(drawing.document, drawing.scene.selection,
                [&drawing]<typename Record>(const Record& record) {
                  if constexpr (std::is_same_v<Record, Waypoint>) {
                    // Its square is its mark: red in Add waypoint, where hovering selects.
                    if (!drawing.IsTool(ToolMode::kAddWaypoint)) return;
                    drawing.painter.SetColor(kMarkColor);
                    DrawWaypointMark(drawing, record);
                  } else {
                    DrawMark(drawing, PlaceOf(record));
                  }
                });
}

void DrawSelectionBox(Drawing& drawing) {
  const SelectionBox& box = drawing.scene.selection.box;
  if (!drawing.IsTool(ToolMode::kEdit) || !box.Complete()) return;
  drawing.painter.SetStyle(PenStyle::kDot);
  drawing.painter.SetColor(kSelectionBoxColor);
  drawing.painter.DrawWorldLine(box.left, box.top, box.right, box.bottom, true);
}

void DrawSceneryHandles(Drawing& drawing) {
  if (!drawing.IsTool(ToolMode::kEdit) || drawing.scene.selection.sceneries.Count() != 1) return;
  const SceneryObject& scenery = drawing.document.sceneries[drawing.scene.selection.sceneries[0]];
  const auto [a, b] = SidesOf(scenery);
  if (scenery.type != kLianaType) {
    drawing.painter.SetColor(kRotateHandleColor);
    drawing.painter.DrawWorldSquare(scenery.x + a.x, scenery.y + a.y, kHandleHalfSide);
  }
  drawing.painter.SetColor(kSizeHandleColor);
  drawing.painter.DrawWorldSquare(scenery.x + a.x + b.x, scenery.y + a.y + b.y, kHandleHalfSide);
}

/// What a player sees at once: 640 x 480 world units about the view's centre.
/// The top-left corner is pulled out by 3 pixels and the top panel counts here,
/// unlike in the view's centre.
void DrawScreenFrame(Drawing& drawing) {
  const DrawingArea& area = drawing.view.area;
  const double centerX = area.width / 2.0;
  const double centerY = area.height / 2.0;
  const double panelX = area.rightPanelWidth / 2.0;
  const double panelY = area.bottomPanelHeight / 2.0;
  const double topPanel = area.topPanelHeight / 2.0;
  const double halfWidth = 320.0 * drawing.view.zoom;
  const double halfHeight = 240.0 * drawing.view.zoom;
  drawing.painter.SetColor(kScreenFrameColor);
  drawing.painter.SetStyle(PenStyle::kDashDot);
  drawing.painter.DrawScreenRectangle(
      {static_cast<float>(centerX - halfWidth - panelX - 3),
       static_cast<float>(centerY - halfHeight - panelY + topPanel - 3)},
      {static_cast<float>(centerX + halfWidth - panelX),
       static_cast<float>(centerY + halfHeight - panelY + topPanel)});
}

void DrawTextureDots(Drawing& drawing) {
  drawing.painter.SetStyle(PenStyle::kSolid);
  for (const Polygon& polygon : drawing.document.polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) {
      if (!HasTexture(corner)) continue;
      drawing.painter.DrawWorldCircle(corner.u * kTextureWidth, corner.v * kTextureHeight,
                                      kTextureDotRadius, kTextureDotColor);
    }
  }
}

void DrawPlayableSquare(Drawing& drawing) {
  drawing.painter.SetStyle(PenStyle::kSolid);
  const auto d = static_cast<float>(RoundToInt32(15.0 * drawing.document.sectorDivision));
  drawing.painter.SetColor(ToRgb(drawing.document.backgroundColor1));
  drawing.painter.DrawWorldLine(-d, -d, -d, d, false);
  drawing.painter.DrawWorldLine(-d, -d, d, -d, false);
  drawing.painter.SetColor(ToRgb(drawing.document.backgroundColor2));
  drawing.painter.DrawWorldLine(d, -d, d, d, false);
  drawing.painter.DrawWorldLine(-d, d, d, d, false);
}

void DrawAdvanced(Drawing& drawing) {
  if (!drawing.Shows(ShowFlag::kAdvanced)) return;
  DrawScreenFrame(drawing);
  DrawTextureDots(drawing);
  DrawPlayableSquare(drawing);
}

}  // namespace

void DrawMap(const MapScene& scene, Canvas& canvas) {
  CoarsenGrid(scene.view);
  canvas.Clear();
  Drawing drawing{.scene = scene, .painter = WorldPainter(canvas, scene.view)};
  DrawGrid(drawing);
  DrawPolygons(drawing);
  DrawConstructionMark(drawing);
  DrawSpawns(drawing);
  DrawSceneries(drawing);
  DrawColliders(drawing);
  DrawWaypoints(drawing);
  DrawSelectionMarks(drawing);
  DrawSelectionBox(drawing);
  DrawSceneryHandles(drawing);
  DrawAdvanced(drawing);
}

}  // namespace vesmora
