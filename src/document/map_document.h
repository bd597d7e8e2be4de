// MapDocument: the whole map in memory, five fixed tables and the map's
// properties. Plain data; the verbs of this room work on it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "document/records.h"
#include "document/tool_mode.h"

namespace vesmora {

inline constexpr int kPolygonCapacity = 400;
inline constexpr int kSpawnCapacity = 30;
inline constexpr int kSceneryCapacity = 255;
inline constexpr int kColliderCapacity = 128;
inline constexpr int kWaypointCapacity = 500;
inline constexpr int kSectorsPerSide = 31;
inline constexpr int kTextureLength = 26;
/// The author's name is stored one character a collider slot.
inline constexpr int kStoredAuthorLength = kColliderCapacity;
inline constexpr int kReadAuthorLength = 21;

using TextureName = std::array<char, kTextureLength>;  // NUL-padded, no terminator

/// `text` cut or padded with NUL to the length of a texture field.
TextureName MakeTextureName(const std::string& text);

/// Tables are dense from slot 0; each last index is -1 when its table is empty.
/// Slots above it may hold previews or clipboard records.
struct MapDocument {
  std::array<Polygon, kPolygonCapacity> polygons{};
  std::array<PolygonNormals, kPolygonCapacity> normals{};  // parallel to `polygons`
  std::int16_t lastPolygon = -1;
  std::uint8_t looseByte1 = 0;  // the loose bytes and the block are carried
  std::uint8_t looseByte2 = 0;
  std::uint8_t looseByte3 = 0;
  TextureName texture{};
  std::array<SpawnPoint, kSpawnCapacity> spawns{};
  std::array<std::uint8_t, 33> block{};
  std::array<Sector, kSectorsPerSide * kSectorsPerSide> sectors{};  // column x 31 + row
  std::uint8_t looseByte4 = 0;
  std::uint8_t looseByte5 = 0;
  std::int32_t sectorDivision = 0;  // world units
  MapColor backgroundColor1{};
  MapColor backgroundColor2{};
  std::array<SceneryObject, kSceneryCapacity> sceneries{};
  std::int32_t randomId = 0;
  std::array<Waypoint, kWaypointCapacity> waypoints{};
  std::array<Collider, kColliderCapacity> colliders{};

  // Beside the tables, not in a map file.
  std::int16_t lastSpawn = -1;
  std::int16_t lastScenery = -1;
  std::int16_t lastWaypoint = -1;
  std::int16_t lastCollider = -1;
  std::string fileName;  // UTF-8 full path, empty for a new map
  std::string author;    // single-byte text
  ToolMode toolIndex = ToolMode::kEdit;
};

enum class ZeroSlots { kAll, kUnused };

/// Zeroes every field of all slots, or of those after each table's last index.
void ZeroTables(MapDocument& document, ZeroSlots which);

/// The state of a fresh map. The sector grid, loose bytes 1, 2, 4 and 5 and the
/// block stay as the previous map had them.
void ResetToNewMap(MapDocument& document);

/// Last used index of each table by its active test: the first slot that fails
/// it ends the table, whatever lies behind.
std::int16_t FindLastSpawn(const MapDocument& document);
std::int16_t FindLastScenery(const MapDocument& document);
std::int16_t FindLastWaypoint(const MapDocument& document);
std::int16_t FindLastCollider(const MapDocument& document);

/// The author's name as the collider slots 0..20 hold it.
std::string ReadAuthor(const MapDocument& document);

/// Spreads `document.author` over the collider slots, blank names as "Unknow".
void StoreAuthor(MapDocument& document);

/// A passable polygon is kept out of the normals' recomputation and the sector grid.
bool IsPassablePolygon(const PolygonNormals& normals);

}  // namespace vesmora
