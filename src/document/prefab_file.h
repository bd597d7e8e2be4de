// Prefab files: reusable pieces of a map, polygons, sceneries and colliders only.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/map_document.h"

namespace vesmora {

/// More than any sound prefab holds.
inline constexpr std::size_t kPrefabReadLimit = 1U << 20U;

struct PrefabHeader {
  bool isKnownVersion = false;
  int polygonCount = 0;  // may be anything in a damaged file
  int sceneryCount = 0;
  int colliderCount = 0;
  std::string author;  // single-byte text without its padding
};

struct Prefab {
  std::vector<Polygon> polygons;
  std::vector<SceneryObject> sceneries;
  std::vector<Collider> colliders;
};

/// What stands at the start of a file; of one that is too short, its version at most.
PrefabHeader ReadPrefabHeader(std::span<const std::byte> bytes);

/// Whether the tables of a map could hold so many.
bool HasPossibleCounts(const PrefabHeader& header);

/// The whole prefab, or nothing when its counts cannot be or the file is shorter
/// than they promise.
[[nodiscard]] std::optional<Prefab> ReadPrefab(std::span<const std::byte> bytes);

/// Adds a prefab's records to a map as far as they fit; false when not all did.
bool AppendPrefab(MapDocument& document, const Prefab& prefab);

/// The map's polygons, sceneries and colliders as they stand in memory.
std::vector<std::byte> WritePrefab(const MapDocument& document);

}  // namespace vesmora
