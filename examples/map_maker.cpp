#include "map_maker.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string_view>

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "document/texture_mapping.h"

namespace vesmora {
namespace {

constexpr float kSeam = 22;  // world units of surface colour above the deep

/// The same for every corner on one spot, so that shared corners look alike.
MapColor Shaded(MapColor color, Point at) {
  const double wave = std::sin(at.x * 0.071 + at.y * 0.113) + std::sin(at.x * 0.023 - at.y * 0.047);
  const auto shade = [wave](std::uint8_t part) { return RoundToUint8(part * (1 + wave * 0.11)); };
  return {shade(color.blue), shade(color.green), shade(color.red), color.alpha};
}

PolygonVertex Vertex(Point at, MapColor color) {
  PolygonVertex vertex{at.x, at.y, 1, 1, Shaded(color, at), 0, 0};
  MapTexture(vertex, at);
  return vertex;
}

std::vector<Point> Lowered(Line line, float distance) {
  std::vector<Point> lowered(line.begin(), line.end());
  for (Point& point : lowered) point.y += distance;
  return lowered;
}

}  // namespace

Footing FootingAt(Line surface, float x) {
  const auto after = std::find_if(surface.begin() + 1, surface.end() - 1,
                                  [x](const Point& point) { return point.x >= x; });
  const Point& right = *after;
  const Point& left = *(after - 1);
  const float rise = (right.y - left.y) / (right.x - left.x);
  return {left.y + (x - left.x) * rise, std::atan(rise)};
}

MapMaker::MapMaker(MapColor topLeft, MapColor bottomRight) {
  ResetToNewMap(map_);
  map_.author = "Vesmora";
  map_.backgroundColor1 = topLeft;
  map_.backgroundColor2 = bottomRight;
}

void MapMaker::AddTriangle(const Corner& a, const Corner& b, const Corner& c, Matter matter) {
  if (a.at == b.at || b.at == c.at || c.at == a.at) return;  // the tip of an island
  Polygon& polygon = map_.polygons.TakeSlot();
  polygon.vertices = {Vertex(a.at, a.color), Vertex(b.at, b.color), Vertex(c.at, c.color)};
  if (matter == Matter::kSolid) RecomputeNormals(polygon);
  for (Normal& normal : polygon.edges) normal.z = 1;
}

void MapMaker::AddBand(Line upper, Line lower, const Soil& soil, Matter matter) {
  for (std::size_t i = 0; i + 1 < upper.size(); ++i) {
    const Corner a{upper[i], soil.surface};
    const Corner b{upper[i + 1], soil.surface};
    const Corner c{lower[i], soil.deep};
    const Corner d{lower[i + 1], soil.deep};
    AddTriangle(a, b, c, matter);
    AddTriangle(b, d, c, matter);
  }
}

void MapMaker::AddFan(Point middle, Line rim, const Soil& soil, Matter matter) {
  for (std::size_t i = 0; i < rim.size(); ++i) {
    AddTriangle({middle, soil.deep}, {rim[i], soil.surface},
                {rim[(i + 1) % rim.size()], soil.surface}, matter);
  }
}

void MapMaker::AddGround(Line surface, float bottom, const Soil& soil) {
  const std::vector<Point> seam = Lowered(surface, kSeam);
  std::vector<Point> base = seam;
  for (Point& point : base) point.y = bottom;
  AddBand(surface, seam, soil);
  AddBand(seam, base, {soil.deep, soil.deep});
}

void MapMaker::AddIsland(Line surface, float depth, const Soil& soil) {
  std::vector<Point> belly(surface.begin(), surface.end());
  const float length = surface.back().x - surface.front().x;
  for (Point& point : belly) {
    const float part = (point.x - surface.front().x) / length;
    point.y += depth * 4 * part * (1 - part);
  }
  AddBand(surface, belly, soil);
}

void MapMaker::AddSpawns(std::span<const Spawn> spawns) {
  for (const Spawn& spawn : spawns) {
    SpawnPoint& record = map_.spawns.TakeSlot();
    record.active = 1;
    record.x = ToFixedPoint(spawn.at.x);
    record.y = ToFixedPoint(spawn.at.y);
    record.team = static_cast<std::uint8_t>(spawn.team);
  }
}

void MapMaker::AddColliders(std::span<const Ball> balls) {
  for (const Ball& ball : balls) {
    Collider& collider = map_.colliders.TakeSlot();
    collider.active = 1;
    collider.x = ball.center.x;
    collider.y = ball.center.y;
    collider.radius = ball.size;
  }
}

void MapMaker::AddScenery(const Prop& prop, Point corner, float rotation) {
  SceneryObject& scenery = map_.sceneries.TakeSlot();
  scenery.active = 1;
  scenery.type = static_cast<std::uint8_t>(prop.kind);
  scenery.width = SceneryTypeOf(scenery.type).width;
  scenery.height = SceneryTypeOf(scenery.type).height;
  scenery.x = corner.x;
  scenery.y = corner.y;
  scenery.rotation = rotation;
  scenery.scaleX = prop.size;
  scenery.scaleY = prop.size;
  scenery.level = prop.level;
}

void MapMaker::AddStanding(std::span<const Prop> props, Line surface) {
  for (const Prop& prop : props) {
    const SceneryType& type = SceneryTypeOf(static_cast<std::uint8_t>(prop.kind));
    const float half = prop.size * static_cast<float>(type.width) / 2;
    const float height = prop.size * static_cast<float>(type.height) + prop.at.y;
    const auto [y, slope] = FootingAt(surface, prop.at.x);
    const float cosine = std::cos(slope);
    const float sine = std::sin(slope);
    AddScenery(prop, {prop.at.x - half * cosine + height * sine, y - half * sine - height * cosine},
               -slope);
  }
}

void MapMaker::AddHanging(std::span<const Prop> props) {
  // A liana's picture lies on its side.
  const float quarter = std::numbers::pi_v<float> / 2;
  for (const Prop& prop : props) {
    AddScenery(prop, prop.at, prop.kind == Kind::kLiana ? -quarter : 0);
  }
}

void MapMaker::AddPath(int path, std::span<const Stop> stops) {
  constexpr std::string_view kWays = "LRUDF";
  const int first = map_.waypoints.Count() + 1;  // its number
  for (const Stop& stop : stops) {
    Waypoint& waypoint = map_.waypoints.TakeSlot();
    waypoint.active = 1;
    waypoint.id = map_.waypoints.Count();
    waypoint.x = ToFixedPoint(stop.at.x);
    waypoint.y = ToFixedPoint(stop.at.y);
    for (const char way : stop.ways) waypoint.botSettings[kWays.find(way)] = 1;
    waypoint.path = path;
    for (const int next : stop.next) {
      waypoint.connections[static_cast<std::size_t>(waypoint.connectionCount++)] = first + next;
    }
  }
}

}  // namespace vesmora
