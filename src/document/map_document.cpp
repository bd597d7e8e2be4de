#include "document/map_document.h"

#include <algorithm>

#include "platform/text.h"

namespace vesmora {
namespace {

template <typename Table>
void ZeroFrom(Table& table, int first) {
  std::fill(table.begin() + first, table.end(), typename Table::value_type{});
}

template <typename Table, typename IsActive>
std::int16_t FindLast(const Table& table, IsActive isActive) {
  const auto firstInactive = std::ranges::find_if_not(table, isActive);
  return static_cast<std::int16_t>(firstInactive - table.begin() - 1);
}

}  // namespace

TextureName MakeTextureName(const std::string& text) {
  TextureName name{};
  std::copy_n(text.begin(), std::min(text.size(), name.size()), name.begin());
  return name;
}

void ZeroTables(MapDocument& document, ZeroSlots which) {
  const auto first = [which](std::int16_t last) { return which == ZeroSlots::kAll ? 0 : last + 1; };
  ZeroFrom(document.polygons, first(document.lastPolygon));
  ZeroFrom(document.normals, first(document.lastPolygon));
  ZeroFrom(document.spawns, first(document.lastSpawn));
  ZeroFrom(document.sceneries, first(document.lastScenery));
  ZeroFrom(document.waypoints, first(document.lastWaypoint));
  ZeroFrom(document.colliders, first(document.lastCollider));
}

void ResetToNewMap(MapDocument& document) {
  document.lastPolygon = -1;
  document.lastSpawn = -1;
  document.lastScenery = -1;
  document.lastWaypoint = -1;
  document.lastCollider = -1;
  document.fileName.clear();
  document.author = "New";
  document.texture = MakeTextureName("banana.bmp");
  document.looseByte3 = 10;
  document.sectorDivision = 30;
  document.backgroundColor1 = {255, 255, 255, 255};
  document.backgroundColor2 = {255, 255, 255, 255};
  document.toolIndex = ToolMode::kEdit;
  ZeroTables(document, ZeroSlots::kAll);
}

std::int16_t FindLastSpawn(const MapDocument& document) {
  return FindLast(document.spawns, [](const SpawnPoint& spawn) { return spawn.active != 0; });
}

std::int16_t FindLastScenery(const MapDocument& document) {
  return FindLast(document.sceneries,
                  [](const SceneryObject& scenery) { return scenery.active == 1; });
}

std::int16_t FindLastWaypoint(const MapDocument& document) {
  return FindLast(document.waypoints,
                  [](const Waypoint& waypoint) { return waypoint.active == 1; });
}

std::int16_t FindLastCollider(const MapDocument& document) {
  return FindLast(document.colliders,
                  [](const Collider& collider) { return collider.active == 1; });
}

std::string ReadAuthor(const MapDocument& document) {
  std::string author;
  for (std::size_t slot = 0; slot < kReadAuthorLength; ++slot) {
    const std::uint8_t character = document.colliders[slot].authorChar;
    if (character == 0) break;
    author += static_cast<char>(character);
  }
  return author;
}

void StoreAuthor(MapDocument& document) {
  if (TrimBlanks(document.author).empty()) document.author = "Unknow";
  const std::size_t length = std::min(document.author.size(), std::size_t{kStoredAuthorLength});
  for (std::size_t slot = 0; slot < length; ++slot) {
    document.colliders[slot].authorChar = static_cast<std::uint8_t>(document.author[slot]);
  }
  if (length < document.colliders.size()) document.colliders[length].authorChar = 0;
}

bool IsPassablePolygon(const PolygonNormals& normals) {
  return std::ranges::all_of(normals.edges, [](const Normal& normal) { return normal.y == 0; });
}

}  // namespace vesmora
