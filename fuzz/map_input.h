// The map reader's fuzz input: half a megabyte, mostly zeros, said in a few bytes.
//
//   byte 0   bit 0: an undo file; bit 1: the bytes from byte 3 on are the file
//            itself; else they are patches to a sound base map
//   byte 1   which base map
//   byte 2   what the map is looked at with
//   patches  field, first record (16 bits), further records, value: the value
//            goes into that field of all those records. A field's number is its
//            place in kFields; both numbers wrap around.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "document/map_image.h"

namespace vesmora {

struct MapInput {
  bool isUndo = false;
  std::uint8_t look = 0;
  std::vector<std::byte> file;
};

struct Field {
  std::size_t offset;  // in the file, of the first record's
  std::size_t size;
  std::size_t stride;
  std::size_t count;
};

namespace place {

inline constexpr std::size_t kNormals = sizeof(MapDocument::polygons);
inline constexpr std::size_t kPolygonCount = kNormals + sizeof(MapDocument::normals);
inline constexpr std::size_t kTexture = kPolygonCount + 2 + 3;
inline constexpr std::size_t kSpawns = kTexture + sizeof(MapDocument::texture);
inline constexpr std::size_t kSectors =
    kSpawns + sizeof(MapDocument::spawns) + sizeof(MapDocument::block);
inline constexpr std::size_t kColors = kDivisionOffset + 4;
inline constexpr std::size_t kSceneries = kColors + 2 * sizeof(MapColor);
inline constexpr std::size_t kRandomId = kSceneries + sizeof(MapDocument::sceneries);
inline constexpr std::size_t kWaypoints = kRandomId + 4;
inline constexpr std::size_t kColliders = kWaypoints + sizeof(MapDocument::waypoints);
static_assert(kColliders + sizeof(MapDocument::colliders) == kMapFileSize);

// The selection of undo files: entries, seven counters, the box, five last indexes.
inline constexpr std::size_t kCorners = kMapFileSize + 2400;
inline constexpr std::size_t kByteEntries = kCorners + 1200;
inline constexpr std::size_t kWaypointEntries = kByteEntries + 30 + 255 + 128;
inline constexpr std::size_t kCounters = kWaypointEntries + 1000;
inline constexpr std::size_t kBox = kCounters + 12;
inline constexpr std::size_t kLastIndexes = kBox + 16;

}  // namespace place

/// The value is the new length of the file instead.
inline constexpr Field kLengthField{0, 3, 0, 1};

inline constexpr std::array kFields = {
    kLengthField,
    Field{0, 8, 8, kUndoFileSize / 8},  // anything at all
    Field{offsetof(PolygonVertex, x), 8, 28, 1200},
    Field{offsetof(PolygonVertex, y), 4, 28, 1200},
    Field{offsetof(PolygonVertex, color), 4, 28, 1200},
    Field{offsetof(PolygonVertex, u), 8, 28, 1200},
    Field{place::kNormals, 8, 12, 1200},
    Field{place::kNormals, 4, 4, 3600},
    Field{place::kPolygonCount, 2, 0, 1},
    Field{place::kTexture, 1, 1, kTextureLength},
    Field{place::kSpawns, 4, 16, kSpawnCapacity},
    Field{place::kSpawns + offsetof(SpawnPoint, x), 8, 16, kSpawnCapacity},
    Field{place::kSpawns + offsetof(SpawnPoint, ySign), 2, 16, kSpawnCapacity},
    Field{place::kSectors, 2, 2, 0xFFFF},
    Field{place::kSectors + offsetof(Sector, count), 2, sizeof(Sector), 961},
    Field{kDivisionOffset, 4, 0, 1},
    Field{place::kColors, 4, 4, 2},
    Field{place::kSceneries, 2, 36, kSceneryCapacity},
    Field{place::kSceneries + offsetof(SceneryObject, x), 8, 36, kSceneryCapacity},
    Field{place::kSceneries + offsetof(SceneryObject, rotation), 4, 36, kSceneryCapacity},
    Field{place::kSceneries + offsetof(SceneryObject, scaleX), 8, 36, kSceneryCapacity},
    Field{place::kWaypoints, 4, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, x), 8, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, botSettings), 8, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, path), 4, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, connectionCount), 4, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, connections), 4, 112, kWaypointCapacity},
    Field{place::kWaypoints + offsetof(Waypoint, connections), 4, 4, kConnectionCapacity},
    Field{place::kColliders, 1, 16, kColliderCapacity},
    Field{place::kColliders + offsetof(Collider, authorChar), 1, 16, kColliderCapacity},
    Field{place::kColliders + offsetof(Collider, x), 8, 16, kColliderCapacity},
    Field{place::kColliders + offsetof(Collider, radius), 4, 16, kColliderCapacity},
    Field{kMapFileSize, 2, 2, 1200},
    Field{place::kCorners, 1, 1, 1200},
    Field{place::kByteEntries, 1, 1, 30 + 255 + 128},
    Field{place::kWaypointEntries, 2, 2, kWaypointCapacity},
    Field{place::kCounters, 2, 2, 6},
    Field{place::kBox, 4, 4, 4},
    Field{place::kLastIndexes, 2, 2, 5},
    Field{kMapFileSize + kSelectionBlockSize, 2, 0, 1},
};

inline void ApplyPatch(const Field& field, std::size_t first, std::size_t records,
                       std::span<const std::uint8_t> value, std::vector<std::byte>& file) {
  if (field.count == 1 && field.size == kLengthField.size) {
    const std::size_t length = value[0] + 256U * value[1] + 65536U * value[2];
    file.resize(length % (kUndoFileSize + 1000));
    return;
  }
  for (std::size_t i = 0; i < records; ++i) {
    const std::size_t at = field.offset + (first + i) % field.count * field.stride;
    if (at + value.size() > file.size()) continue;
    std::memcpy(file.data() + at, value.data(), value.size());
  }
}

/// `bases` are files of sound maps, the first half of them maps, the rest undo files.
inline MapInput DecodeMapInput(std::span<const std::uint8_t> data,
                               std::span<const std::vector<std::byte>> bases) {
  constexpr std::size_t kHeader = 3;
  constexpr std::size_t kPatchHeader = 4;
  MapInput input;
  if (data.size() < kHeader) return input;
  input.isUndo = (data[0] & 1U) != 0;
  input.look = data[2];
  const bool isRaw = (data[0] & 2U) != 0;
  const std::size_t perKind = bases.size() / 2;
  const std::size_t base = data[1] % perKind + (input.isUndo ? perKind : 0);
  data = data.subspan(kHeader);
  if (isRaw) {
    const std::span<const std::byte> bytes = std::as_bytes(data);
    input.file.assign(bytes.begin(), bytes.end());
    return input;
  }
  input.file = bases[base];
  while (data.size() > kPatchHeader) {
    const Field& field = kFields[data[0] % kFields.size()];
    if (data.size() < kPatchHeader + field.size) break;
    const std::size_t first = data[1] + 256U * data[2];
    ApplyPatch(field, first, std::size_t{data[3]} + 1, data.subspan(kPatchHeader, field.size),
               input.file);
    data = data.subspan(kPatchHeader + field.size);
  }
  return input;
}

}  // namespace vesmora
