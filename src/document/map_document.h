// MapDocument: the whole map in memory, five tables and the map's properties. Plain data;
// the verbs of this room work on it.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "document/records.h"
#include "document/table.h"
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

struct MapDocument {
  Table<Polygon, kPolygonCapacity> polygons;
  std::uint8_t looseByte1 = 0;  // the loose bytes and the block are carried
  std::uint8_t looseByte2 = 0;
  std::uint8_t looseByte3 = 0;
  TextureName texture{};
  Table<SpawnPoint, kSpawnCapacity> spawns;
  std::array<std::uint8_t, 33> block{};
  std::array<Sector, kSectorsPerSide * kSectorsPerSide> sectors{};  // column x 31 + row
  std::uint8_t looseByte4 = 0;
  std::uint8_t looseByte5 = 0;
  std::int32_t sectorDivision = 0;  // world units
  MapColor backgroundColor1{};
  MapColor backgroundColor2{};
  Table<SceneryObject, kSceneryCapacity> sceneries;
  std::int32_t randomId = 0;
  Table<Waypoint, kWaypointCapacity> waypoints;
  Table<Collider, kColliderCapacity> colliders;

  // Not in a map file.
  std::string fileName;  // UTF-8 full path, empty for a new map
  std::string author;    // single-byte text
  ToolMode toolIndex = ToolMode::kEdit;
};

/// Calls `visit` with each of the five tables.
template <typename Document, typename Visit>
void VisitTables(Document& document, Visit visit) {
  visit(document.polygons);
  visit(document.spawns);
  visit(document.sceneries);
  visit(document.colliders);
  visit(document.waypoints);
}

/// Nothing lies on the map.
bool IsEmpty(const MapDocument& document);

/// Zeroes every field of the slots that are not used.
void ZeroFreeSlots(MapDocument& document);

/// Empties the tables and zeroes every field of all their slots.
void ZeroTables(MapDocument& document);

/// The state of a fresh map. The sector grid, loose bytes 1, 2, 4 and 5 and the
/// block stay as the previous map had them.
void ResetToNewMap(MapDocument& document);

/// Finds where the tables but the polygons' end: before the first slot that is not marked
/// as used, whatever lies behind.
void FindTableEnds(MapDocument& document);

/// The author's name as the collider slots 0..20 hold it.
std::string ReadAuthor(const MapDocument& document);

/// Spreads `document.author` over the collider slots, blank names as "Unknow".
void StoreAuthor(MapDocument& document);

}  // namespace vesmora
