#include "view/map_picture.h"

#include <algorithm>
#include <cmath>

#include "document/extent.h"
#include "document/selection.h"
#include "view/draw_map.h"
#include "view/scenery_shape.h"

namespace vesmora {
namespace {

constexpr float kFarthest = 32768;   // world units: the game keeps places as 16-bit numbers
constexpr float kObjectMargin = 12;  // world units beside what is drawn larger than its place

struct Area {
  Extent x;
  Extent y;

  void Include(WorldPoint place, float margin = kObjectMargin) {
    if (!(std::abs(place.x) < kFarthest && std::abs(place.y) < kFarthest)) return;
    x.Include(place.x - margin);
    x.Include(place.x + margin);
    y.Include(place.y - margin);
    y.Include(place.y + margin);
  }
};

Area AreaOf(const MapDocument& document) {
  Area area;
  for (const Polygon& polygon : document.polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) area.Include(PlaceOf(corner));
  }
  for (const SpawnPoint& spawn : document.spawns.Used()) area.Include(PlaceOf(spawn));
  for (const SceneryObject& scenery : document.sceneries.Used()) {
    const auto [along, across] = SidesOf(scenery);
    const auto [left, top] = PlaceOf(scenery);
    for (const WorldPoint side :
         {WorldPoint{}, along, across, WorldPoint{along.x + across.x, along.y + across.y}}) {
      area.Include({left + side.x, top + side.y});
    }
  }
  for (const Collider& collider : document.colliders.Used()) {
    area.Include(PlaceOf(collider),
                 kObjectMargin + std::clamp(collider.radius / 2, 0.0f, kFarthest));
  }
  for (const Waypoint& waypoint : document.waypoints.Used()) area.Include(PlaceOf(waypoint));
  if (area.x.Empty()) area.Include({0, 0});
  return area;
}

}  // namespace

ViewTransform WholeMapView(const MapDocument& document, int width, int height) {
  const Area area = AreaOf(document);
  ViewTransform view;
  view.area = {.width = width, .height = height};
  view.centerX = (area.x.low + area.x.high) / 2;
  view.centerY = (area.y.low + area.y.high) / 2;
  view.zoom =
      std::min({static_cast<float>(width) / (area.x.high - area.x.low),
                static_cast<float>(height) / (area.y.high - area.y.low), kZoomLevels.front()});
  return view;
}

void DrawPicture(MapDocument& document, int width, int height, Canvas& canvas) {
  ViewTransform view = WholeMapView(document, width, height);
  DrawMap({.document = document,
           .selection = Selection{},
           .view = view,
           .show = ShowOptions{},
           .tool = ToolDrawing{.showsNext = false}},
          canvas);
}

}  // namespace vesmora
