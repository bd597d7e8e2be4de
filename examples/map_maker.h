// MapMaker: builds a map from short rows of numbers. World units, y points down.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "document/map_document.h"
#include "document/world_point.h"

namespace vesmora {

using Point = WorldPoint;
using Line = std::span<const Point>;

/// 0xRRGGBB, opaque.
constexpr MapColor Color(unsigned rgb) {
  return {static_cast<std::uint8_t>(rgb & 255U), static_cast<std::uint8_t>(rgb >> 8U & 255U),
          static_cast<std::uint8_t>(rgb >> 16U & 255U), 255};
}

/// Of a piece of ground: along its surface, and deep inside.
struct Soil {
  MapColor surface;
  MapColor deep;
};

enum class Kind : std::uint8_t {
  kGrass = 1,
  kShortGrass,
  kLongGrass,
  kDarkGrass,
  kLiana,
  kCeilingStuff,
  kFence,
  kMetalRubble,
  kMetalDirt,
  kBrownDirt,
  kWoodenBoard,
  kGreyBoard,
  kThinBoard,
  kEarth,
  kManyLianas,
  kStone,
  kBarrel,
  kGarbage,
  kSmallCrate,
  kSandbags,
  kBigCrate,
};

struct Prop {
  Kind kind;
  Point at;        // middle of the foot; of hanging ones the upper left corner
  float size = 1;  // times its kind's base size
  std::uint8_t level = 255;
};

enum class Team : std::uint8_t { kNormal, kRed, kBlue };

struct Spawn {
  Team team;
  Point at;
};

struct Ball {
  Point center;
  float size;
};

struct Stop {
  Point at;
  std::string ways;       // how bots go on from here: any of L, R, U, D, F (fly)
  std::vector<int> next;  // stops it leads to, counted from 0 within its path
};

/// Height of a surface below the upper edge of the world, and its slope in radians.
struct Footing {
  float y;
  float slope;
};

Footing FootingAt(Line surface, float x);

class MapMaker {
 public:
  MapMaker(MapColor topLeft, MapColor bottomRight);

  enum class Matter { kSolid, kPassable };

  /// The band between two lines of as many points, as triangles that share corners.
  void AddBand(Line upper, Line lower, const Soil& soil, Matter matter = Matter::kSolid);
  /// All around a middle point.
  void AddFan(Point middle, Line rim, const Soil& soil, Matter matter);
  /// Everything below a surface: a thin seam of its colour, then down to `bottom`.
  void AddGround(Line surface, float bottom, const Soil& soil);
  /// A floating piece of ground that bulges below and is pointed at both ends.
  void AddIsland(Line surface, float depth, const Soil& soil);

  void AddSpawns(std::span<const Spawn> spawns);
  void AddColliders(std::span<const Ball> balls);
  /// On a surface, leaning with it; their own y is how far they stand above it.
  void AddStanding(std::span<const Prop> props, Line surface);
  void AddHanging(std::span<const Prop> props);
  void AddPath(int path, std::span<const Stop> stops);

  MapDocument& Map() { return map_; }

 private:
  struct Corner {
    Point at;
    MapColor color;
  };

  void AddTriangle(const Corner& a, const Corner& b, const Corner& c, Matter matter);
  void AddScenery(const Prop& prop, Point corner, float rotation);

  MapDocument map_;
};

}  // namespace vesmora
