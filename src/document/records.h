// The records of a map. Their memory image is their image in the map file, so
// sizes and offsets are part of the file format and proved here.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace vesmora {

static_assert(std::endian::native == std::endian::little, "map files are little-endian");

/// Blue, green, red, alpha, as stored. Alpha is carried and never edited.
struct MapColor {
  std::uint8_t blue;
  std::uint8_t green;
  std::uint8_t red;
  std::uint8_t alpha;

  bool operator==(const MapColor&) const = default;
};

struct PolygonVertex {
  float x;
  float y;
  float z;    // carried
  float rhw;  // carried
  MapColor color;
  float u;
  float v;

  bool operator==(const PolygonVertex&) const = default;
};

/// Normal of the edge from corner i to corner i + 1; x = y = 0 marks a passable edge.
struct Normal {
  float x;
  float y;
  float z;  // carried

  bool operator==(const Normal&) const = default;
};

/// In map files all vertices come first, then all edges.
struct Polygon {
  std::array<PolygonVertex, 3> vertices;
  std::array<Normal, 3> edges;

  bool operator==(const Polygon&) const = default;
};

inline constexpr std::uint8_t kNormalTeam = 0;
inline constexpr std::uint8_t kRedTeam = 1;
inline constexpr std::uint8_t kBlueTeam = 2;

struct SpawnPoint {
  std::int32_t active;  // non-zero when in use
  std::int32_t x;       // world units x 256
  std::int32_t y;
  std::uint8_t ySign;  // 255 when y is negative, else 0; set on save
  std::uint8_t team;   // kNormalTeam, kRedTeam, kBlueTeam; a damaged file may hold others
  std::array<std::uint8_t, 2> carried;

  bool operator==(const SpawnPoint&) const = default;
};

struct SceneryObject {
  std::uint8_t active;  // 1 when in use
  std::uint8_t type;    // index into kSceneryTypes
  std::array<std::uint8_t, 2> carried;
  std::int32_t width;  // base size of the type at creation; never read again
  std::int32_t height;
  float x;
  float y;
  float rotation;  // radians
  float scaleX;
  float scaleY;
  std::uint8_t level;  // visibility, 255 = 100%
  std::array<std::uint8_t, 3> carriedTail;

  bool operator==(const SceneryObject&) const = default;
};

struct Collider {
  std::uint8_t active;  // 1 when in use
  std::array<std::uint8_t, 2> carried;
  std::uint8_t authorChar;  // one character of the map's author, not of the collider
  float x;
  float y;
  float radius;  // the collider's "Size": its diameter in world units

  bool operator==(const Collider&) const = default;
};

inline constexpr int kConnectionCapacity = 20;

struct Waypoint {
  std::int32_t active;  // 1 when in use
  std::int32_t id;      // slot + 1
  std::int32_t x;       // world units x 256 in memory, whole world units in files
  std::int32_t y;
  std::array<std::uint8_t, 5> botSettings;  // left, right, up, down, fly
  std::array<std::uint8_t, 3> carried;
  std::int32_t path;                                          // 1 or 2
  std::int32_t connectionCount;                               // may hold anything in a damaged file
  std::array<std::int32_t, kConnectionCapacity> connections;  // ids, 0 names nothing

  bool operator==(const Waypoint&) const = default;
};

struct Sector {
  std::array<std::int16_t, 200> polygons;  // 1-based polygon numbers
  std::int16_t count;

  bool operator==(const Sector&) const = default;
};

static_assert(sizeof(PolygonVertex) == 28 && offsetof(PolygonVertex, color) == 16 &&
              offsetof(PolygonVertex, u) == 20 && offsetof(PolygonVertex, v) == 24);
static_assert(sizeof(MapColor) == 4 && offsetof(MapColor, red) == 2);
static_assert(sizeof(Polygon::vertices) == 84 && sizeof(Polygon::edges) == 36);
static_assert(sizeof(SpawnPoint) == 16 && offsetof(SpawnPoint, x) == 4 &&
              offsetof(SpawnPoint, y) == 8 && offsetof(SpawnPoint, ySign) == 12 &&
              offsetof(SpawnPoint, team) == 13 && offsetof(SpawnPoint, carried) == 14);
static_assert(sizeof(SceneryObject) == 36 && offsetof(SceneryObject, type) == 1 &&
              offsetof(SceneryObject, width) == 4 && offsetof(SceneryObject, height) == 8 &&
              offsetof(SceneryObject, x) == 12 && offsetof(SceneryObject, y) == 16 &&
              offsetof(SceneryObject, rotation) == 20 && offsetof(SceneryObject, scaleX) == 24 &&
              offsetof(SceneryObject, scaleY) == 28 && offsetof(SceneryObject, level) == 32 &&
              offsetof(SceneryObject, carriedTail) == 33);
static_assert(sizeof(Collider) == 16 && offsetof(Collider, authorChar) == 3 &&
              offsetof(Collider, x) == 4 && offsetof(Collider, y) == 8 &&
              offsetof(Collider, radius) == 12);
static_assert(sizeof(Waypoint) == 112 && offsetof(Waypoint, id) == 4 &&
              offsetof(Waypoint, x) == 8 && offsetof(Waypoint, y) == 12 &&
              offsetof(Waypoint, botSettings) == 16 && offsetof(Waypoint, path) == 24 &&
              offsetof(Waypoint, connectionCount) == 28 && offsetof(Waypoint, connections) == 32);
static_assert(sizeof(Sector) == 402 && offsetof(Sector, count) == 400);

}  // namespace vesmora
