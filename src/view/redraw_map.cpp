#include "view/redraw_map.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <span>

#include "document/numbers.h"
#include "document/scenery_types.h"
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
constexpr float kSceneryOffset = 0.5f;
constexpr int kGridRightMargin = 150;  // pixels

/// The used slots of a table and, where a tool shows one, the pending slot behind them.
template <typename Table>
auto Used(Table& table, std::int16_t last, bool withPending = false) {
  const int count = last + 1 + (withPending ? 1 : 0);
  return std::span(table).first(std::min(static_cast<std::size_t>(count), table.size()));
}

/// One redraw: the scene, in the order in which it is painted.
class MapDrawing {
 public:
  MapDrawing(const MapScene& scene, Canvas& canvas)
      : document_(scene.document),
        selection_(scene.selection),
        view_(scene.view),
        show_(scene.show),
        tool_(scene.tool),
        painter_(canvas, scene.view) {}

  void DrawGrid();
  void DrawPolygons();
  void DrawConstructionMark();
  void DrawSpawns();
  void DrawSceneries();
  void DrawColliders();
  void DrawWaypoints();
  void DrawSelectionMarks();
  void DrawSelectionBox();
  void DrawSceneryHandles();
  void DrawAdvanced();

 private:
  bool IsTool(ToolMode tool) const { return document_.toolIndex == tool; }

  void DrawWorldGrid();
  void DrawFixedGrid();
  void DrawSpawn(const SpawnPoint& spawn, Rgb color, bool isFirstOfTeam);
  void DrawSceneryOutline(const SceneryObject& scenery);
  void DrawWaypointMark(const Waypoint& waypoint);
  void DrawConnections(Waypoint& waypoint);
  void DrawMark(float x, float y) { painter_.DrawWorldCircle(x, y, kMarkRadius, kMarkColor); }
  void DrawScreenFrame();
  void DrawTextureDots();
  void DrawPlayableSquare();

  MapDocument& document_;
  const Selection& selection_;
  const ViewTransform& view_;
  const ShowOptions& show_;
  const ToolDrawing& tool_;
  WorldPainter painter_;
};

void MapDrawing::DrawGrid() {
  if (view_.gridSize < 1) return;
  if (view_.fixedGrid) {
    DrawFixedGrid();
  } else {
    DrawWorldGrid();
  }
}

void MapDrawing::DrawWorldGrid() {
  const std::int64_t step = view_.gridSize;
  // Starting on an even multiple keeps the lighter lines on even multiples.
  const auto firstLine = [step](float edge) {
    const double whole = RoundToInt32(edge);
    return 2 * step * RoundToInt32(whole / static_cast<double>(2 * step));
  };
  const auto width = static_cast<float>(view_.area.width);
  const auto height = static_cast<float>(view_.area.height);
  const float left = view_.LaskeRuutu2X(0);
  const float right = view_.LaskeRuutu2X(width);
  const float top = view_.LaskeRuutu2Y(0);
  const float bottom = view_.LaskeRuutu2Y(height);

  bool light = true;
  const std::int64_t lastX = RoundToInt32(view_.LaskeRuutu2X(width - kGridRightMargin));
  for (std::int64_t x = firstLine(left); x <= lastX; x += step, light = !light) {
    painter_.SetColor(light ? kLightGridColor : kDarkGridColor);
    painter_.DrawWorldLine(static_cast<float>(x), top, static_cast<float>(x), bottom, false);
  }
  light = true;
  const std::int64_t lastY = RoundToInt32(bottom);
  for (std::int64_t y = firstLine(top); y <= lastY; y += step, light = !light) {
    painter_.SetColor(light ? kLightGridColor : kDarkGridColor);
    painter_.DrawWorldLine(left, static_cast<float>(y), right, static_cast<float>(y), false);
  }
}

void MapDrawing::DrawFixedGrid() {
  const int spacing = std::max(1, RoundToInt32(view_.gridSize * view_.zoom));
  const auto width = static_cast<float>(view_.area.width);
  const auto height = static_cast<float>(view_.area.height);
  bool light = true;
  for (int p = 0; p <= std::max(view_.area.width, view_.area.height);
       p += spacing, light = !light) {
    const auto position = static_cast<float>(p);
    painter_.SetColor(light ? kLightGridColor : kDarkGridColor);
    painter_.DrawScreenLine({0, position}, {width, position});
    painter_.DrawScreenLine({position, 0}, {position, height});
  }
}

void MapDrawing::DrawPolygons() {
  if (!show_.Shows(ShowFlag::kPolygons)) return;
  for (std::size_t i = 0; i < Used(document_.polygons, document_.lastPolygon).size(); ++i) {
    const auto& corners = document_.polygons[i].vertices;
    for (std::size_t k = 0; k < corners.size(); ++k) {
      const PolygonVertex& from = corners[k];
      const PolygonVertex& to = corners[(k + 1) % corners.size()];
      const Normal& normal = document_.normals[i].edges[k];
      const bool isPassable = normal.x == 0 && normal.y == 0;
      painter_.SetStyle(isPassable ? PenStyle::kDot : PenStyle::kSolid);
      painter_.SetColor(ToRgb(from.color));
      painter_.DrawWorldLine(from.x, from.y, to.x, to.y, false);
    }
  }
}

void MapDrawing::DrawConstructionMark() {
  painter_.SetStyle(PenStyle::kDash);
  if (!IsTool(ToolMode::kAddPolygon) || !selection_.Empty()) return;
  const int polygon = document_.lastPolygon + (tool_.placedCorners == 0 ? 1 : 0);
  if (polygon < 0 || polygon >= kPolygonCapacity) return;
  const auto& corners = document_.polygons[static_cast<std::size_t>(polygon)].vertices;
  const PolygonVertex& corner = corners[static_cast<std::size_t>(tool_.placedCorners)];
  DrawMark(corner.x, corner.y);
}

void MapDrawing::DrawSpawn(const SpawnPoint& spawn, Rgb color, bool isFirstOfTeam) {
  const float x = FromFixedPoint(spawn.x);
  const float y = FromFixedPoint(spawn.y);
  painter_.DrawWorldCircle(x, y, kSpawnRadius, color);
  if (isFirstOfTeam) painter_.DrawWorldCircle(x, y, kFirstSpawnRadius, color);
}

void MapDrawing::DrawSpawns() {
  painter_.SetStyle(PenStyle::kSolid);
  if (!show_.Shows(ShowFlag::kSpawns)) return;
  const bool withPending = IsTool(ToolMode::kAddSpawn) && document_.lastSpawn < kSpawnCapacity - 1;
  bool isFirstRed = true;
  bool isFirstBlue = true;
  for (const SpawnPoint& spawn : Used(document_.spawns, document_.lastSpawn, withPending)) {
    if (spawn.team == 0) {
      DrawSpawn(spawn, kNormalSpawnColor, false);
    } else if (spawn.team == 1) {
      DrawSpawn(spawn, kRedSpawnColor, isFirstRed);
      isFirstRed = false;
    } else if (spawn.team == 2) {
      DrawSpawn(spawn, kBlueSpawnColor, isFirstBlue);
      isFirstBlue = false;
    }
  }
}

void MapDrawing::DrawSceneries() {
  if (!show_.Shows(ShowFlag::kSceneries)) return;
  painter_.SetColor(kSceneryColor);
  const bool withPending = IsTool(ToolMode::kAddScenery) && tool_.hasPendingScenery &&
                           document_.lastScenery < kSceneryCapacity - 1;
  for (const SceneryObject& scenery :
       Used(document_.sceneries, document_.lastScenery, withPending)) {
    painter_.DrawWorldCircle(scenery.x - kSceneryOffset, scenery.y - kSceneryOffset, kMarkRadius,
                             kSceneryColor);
    if (scenery.type < kSceneryTypes.size()) DrawSceneryOutline(scenery);
  }
}

void MapDrawing::DrawSceneryOutline(const SceneryObject& scenery) {
  const auto [a, b] = SidesOf(scenery);
  const float x = scenery.x - kSceneryOffset;
  const float y = scenery.y - kSceneryOffset;
  painter_.DrawWorldLine(x, y, x + a.x, y + a.y, false);
  painter_.DrawWorldLine(x, y, x + b.x, y + b.y, false);
  painter_.DrawWorldLine(x + a.x, y + a.y, x + a.x + b.x, y + a.y + b.y, false);
  painter_.DrawWorldLine(x + b.x, y + b.y, x + a.x + b.x, y + a.y + b.y, false);
}

void MapDrawing::DrawColliders() {
  if (!show_.Shows(ShowFlag::kColliders)) return;
  const bool withPending =
      IsTool(ToolMode::kAddCollider) && document_.lastCollider < kColliderCapacity - 1;
  for (const Collider& collider : Used(document_.colliders, document_.lastCollider, withPending)) {
    painter_.DrawWorldCircle(collider.x, collider.y, RoundToInt16(collider.radius / 2 * view_.zoom),
                             kColliderColor);
  }
}

void MapDrawing::DrawWaypointMark(const Waypoint& waypoint) {
  const float x = FromFixedPoint(waypoint.x);
  const float y = FromFixedPoint(waypoint.y);
  std::array<char, 12> digits{};
  const auto end = std::to_chars(digits.begin(), digits.end(), waypoint.path).ptr;
  painter_.DrawLabel(x, y, {digits.data(), end});
  painter_.DrawWorldSquare(x, y, kWaypointHalfSide);
}

void MapDrawing::DrawConnections(Waypoint& waypoint) {
  // A count of 21 is left as it is, but no more than the 20 slots are read.
  if (waypoint.connectionCount > kConnectionCapacity + 1) {
    waypoint.connectionCount = kConnectionCapacity;
  }
  painter_.SetStyle(PenStyle::kDot);
  const int count = std::clamp(waypoint.connectionCount, 0, kConnectionCapacity);
  for (int j = 0; j < count; ++j) {
    const std::int32_t id = waypoint.connections[static_cast<std::size_t>(j)];
    if (id < 1 || id > kWaypointCapacity) continue;
    const Waypoint& target = document_.waypoints[static_cast<std::size_t>(id - 1)];
    Rgb color = kConnectionColor;
    for (std::size_t i = 0; i < target.botSettings.size(); ++i) {
      if (target.botSettings[i] == 1) color = kBotSettingColors[i];
    }
    painter_.SetColor(color);
    // Each route starts one unit lower, so that parallel ones can be told apart.
    painter_.PiirraReitti(FromFixedPoint(waypoint.x),
                          FromFixedPoint(waypoint.y) + static_cast<float>(j),
                          FromFixedPoint(target.x), FromFixedPoint(target.y));
  }
}

void MapDrawing::DrawWaypoints() {
  if (!show_.Shows(ShowFlag::kWaypoints)) return;
  std::int16_t slot = 0;
  for (Waypoint& waypoint : Used(document_.waypoints, document_.lastWaypoint)) {
    const std::int16_t index = slot++;
    if (!show_.ShowsPath(waypoint.path)) continue;
    painter_.SetStyle(PenStyle::kSolid);
    painter_.SetColor(waypoint.path == 1 ? kFirstPathColor : kOtherPathColor);
    DrawWaypointMark(waypoint);
    DrawConnections(waypoint);
    if (index == selection_.connectionAnchor) {
      painter_.SetStyle(PenStyle::kDot);
      painter_.SetColor(kPendingConnectionColor);
      painter_.PiirraReitti(FromFixedPoint(waypoint.x), FromFixedPoint(waypoint.y),
                            static_cast<float>(tool_.mouseX), static_cast<float>(tool_.mouseY));
    }
  }
}

void MapDrawing::DrawSelectionMarks() {
  painter_.SetStyle(PenStyle::kSolid);
  for (const VertexReference vertex : selection_.vertices.Items()) {
    const auto& corners = document_.polygons[static_cast<std::size_t>(vertex.polygon)].vertices;
    DrawMark(corners[vertex.corner].x, corners[vertex.corner].y);
  }
  for (const std::uint8_t index : selection_.spawns.Items()) {
    const SpawnPoint& spawn = document_.spawns[index];
    DrawMark(FromFixedPoint(spawn.x), FromFixedPoint(spawn.y));
  }
  for (const std::uint8_t index : selection_.sceneries.Items()) {
    const SceneryObject& scenery = document_.sceneries[index];
    DrawMark(scenery.x - kSceneryOffset, scenery.y - kSceneryOffset);
  }
  for (const std::uint8_t index : selection_.colliders.Items()) {
    DrawMark(document_.colliders[index].x, document_.colliders[index].y);
  }
  if (!IsTool(ToolMode::kAddWaypoint)) return;
  painter_.SetColor(kMarkColor);
  for (const std::int16_t index : selection_.waypoints.Items()) {
    DrawWaypointMark(document_.waypoints[static_cast<std::size_t>(index)]);
  }
}

void MapDrawing::DrawSelectionBox() {
  const SelectionBox& box = selection_.box;
  if (!IsTool(ToolMode::kEdit) || !box.Complete()) return;
  painter_.SetStyle(PenStyle::kDot);
  painter_.SetColor(kSelectionBoxColor);
  painter_.DrawWorldLine(box.left, box.top, box.right, box.bottom, true);
}

void MapDrawing::DrawSceneryHandles() {
  if (!IsTool(ToolMode::kEdit) || selection_.sceneries.Count() != 1) return;
  const SceneryObject& scenery = document_.sceneries[selection_.sceneries.Items().front()];
  const auto [a, b] = SidesOf(scenery);
  if (scenery.type != kLianaType) {
    painter_.SetColor(kRotateHandleColor);
    painter_.DrawWorldSquare(scenery.x + a.x, scenery.y + a.y, kHandleHalfSide);
  }
  painter_.SetColor(kSizeHandleColor);
  painter_.DrawWorldSquare(scenery.x + a.x + b.x, scenery.y + a.y + b.y, kHandleHalfSide);
}

void MapDrawing::DrawAdvanced() {
  if (!show_.Shows(ShowFlag::kAdvanced)) return;
  DrawScreenFrame();
  DrawTextureDots();
  DrawPlayableSquare();
}

/// What a player sees at once: 640 x 480 world units about the view's centre.
/// The top-left corner is pulled out by 3 pixels and the top panel counts here,
/// unlike in the view's centre.
void MapDrawing::DrawScreenFrame() {
  const DrawingArea& area = view_.area;
  const double centerX = area.width / 2.0;
  const double centerY = area.height / 2.0;
  const double panelX = area.rightPanelWidth / 2.0;
  const double panelY = area.bottomPanelHeight / 2.0;
  const double topPanel = area.topPanelHeight / 2.0;
  const double halfWidth = 320.0 * view_.zoom;
  const double halfHeight = 240.0 * view_.zoom;
  painter_.SetColor(kScreenFrameColor);
  painter_.SetStyle(PenStyle::kDashDot);
  painter_.DrawScreenRectangle({static_cast<float>(centerX - halfWidth - panelX - 3),
                                static_cast<float>(centerY - halfHeight - panelY + topPanel - 3)},
                               {static_cast<float>(centerX + halfWidth - panelX),
                                static_cast<float>(centerY + halfHeight - panelY + topPanel)});
}

void MapDrawing::DrawTextureDots() {
  painter_.SetStyle(PenStyle::kSolid);
  for (const Polygon& polygon : Used(document_.polygons, document_.lastPolygon)) {
    for (const PolygonVertex& corner : polygon.vertices) {
      if (corner.u == 0 || corner.v == 0) continue;
      painter_.DrawWorldCircle(corner.u * 160, corner.v * 120, kTextureDotRadius, kTextureDotColor);
    }
  }
}

void MapDrawing::DrawPlayableSquare() {
  painter_.SetStyle(PenStyle::kSolid);
  const auto d = static_cast<float>(RoundToInt32(15.0 * document_.sectorDivision));
  painter_.SetColor(ToRgb(document_.backgroundColor1));
  painter_.DrawWorldLine(-d, -d, -d, d, false);
  painter_.DrawWorldLine(-d, -d, d, -d, false);
  painter_.SetColor(ToRgb(document_.backgroundColor2));
  painter_.DrawWorldLine(d, -d, d, d, false);
  painter_.DrawWorldLine(-d, d, d, d, false);
}

}  // namespace

void RedrawMap(const MapScene& scene, Canvas& canvas) {
  CoarsenGrid(scene.view);
  canvas.Clear();
  MapDrawing drawing(scene, canvas);
  drawing.DrawGrid();
  drawing.DrawPolygons();
  drawing.DrawConstructionMark();
  drawing.DrawSpawns();
  drawing.DrawSceneries();
  drawing.DrawColliders();
  drawing.DrawWaypoints();
  drawing.DrawSelectionMarks();
  drawing.DrawSelectionBox();
  drawing.DrawSceneryHandles();
  drawing.DrawAdvanced();
}

}  // namespace vesmora
