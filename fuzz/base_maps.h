// Sound maps for the map reader's fuzz target to spoil: an empty one, a small
// one and one with every table full, each as a map file and as an undo file.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "document/map_image.h"
#include "document/save_preparation.h"

namespace vesmora {

inline void PlacePolygons(MapDocument& map, int count) {
  map.lastPolygon = static_cast<std::int16_t>(count - 1);
  for (int i = 0; i < count; ++i) {
    auto& corners = map.polygons[static_cast<std::size_t>(i)].vertices;
    const auto x = static_cast<float>(i % 20 * 40 - 400);
    const auto y = static_cast<float>(i / 20 * 30 - 100);
    const auto shade = static_cast<std::uint8_t>(i);
    corners[0] = {x, y, 1, 1, {shade, 90, 200, 255}, x / 160, y / 120};
    corners[1] = {x + 40, y, 1, 1, {40, shade, 20, 255}, (x + 40) / 160, y / 120};
    corners[2] = {x, y + 30, 1, 1, {10, 20, shade, 255}, x / 160, (y + 30) / 120};
    // Every fifth polygon stays passable.
    if (i % 5 != 4) map.normals[static_cast<std::size_t>(i)].edges.fill({1, 1, 1});
  }
}

inline void PlaceWaypoints(MapDocument& map, int count) {
  map.lastWaypoint = static_cast<std::int16_t>(count - 1);
  for (int i = 0; i < count; ++i) {
    Waypoint& waypoint = map.waypoints[static_cast<std::size_t>(i)];
    waypoint.active = 1;
    waypoint.id = i + 1;
    waypoint.x = i % 25 * 30 - 380;
    waypoint.y = i / 25 * 20 - 120;
    waypoint.botSettings[static_cast<std::size_t>(i % 5)] = 1;
    waypoint.path = 1 + i % 2;
    waypoint.connectionCount = std::min(1 + i % 20, count);
    for (int k = 0; k < waypoint.connectionCount; ++k) {
      waypoint.connections[static_cast<std::size_t>(k)] = 1 + (i + k + 1) % count;
    }
  }
}

/// With `count` objects of each kind, or as many as there is room for.
inline MapDocument MakeBaseMap(int count) {
  MapDocument map;
  map.texture = MakeTextureName("banana.bmp");
  map.looseByte3 = 10;
  map.sectorDivision = 30;
  map.backgroundColor1 = {200, 120, 60, 255};
  map.author = "Vesmora";
  PlacePolygons(map, std::min(count, kPolygonCapacity));
  map.lastSpawn = static_cast<std::int16_t>(std::min(count, kSpawnCapacity) - 1);
  for (int i = 0; i <= map.lastSpawn; ++i) {
    const auto team = static_cast<std::uint8_t>(i % 3);
    map.spawns[static_cast<std::size_t>(i)] = {1, (i * 50 - 300) * 256, -256 * i, 0, team, {}};
  }
  map.lastScenery = static_cast<std::int16_t>(std::min(count, kSceneryCapacity - 1) - 1);
  for (int i = 0; i <= map.lastScenery; ++i) {
    const auto along = static_cast<float>(i);
    map.sceneries[static_cast<std::size_t>(i)] = {.active = 1,
                                                  .type = static_cast<std::uint8_t>(1 + i % 21),
                                                  .x = along * 3 - 300,
                                                  .y = along / 2,
                                                  .rotation = along / 10,
                                                  .scaleX = 1,
                                                  .scaleY = 1.5f,
                                                  .level = 255};
  }
  map.lastCollider = static_cast<std::int16_t>(std::min(count, kColliderCapacity) - 1);
  for (int i = 0; i <= map.lastCollider; ++i) {
    map.colliders[static_cast<std::size_t>(i)] = {.active = 1,
                                                  .x = static_cast<float>(i * 6 - 380),
                                                  .y = 40,
                                                  .radius = static_cast<float>(8 + i % 50)};
  }
  PlaceWaypoints(map, count > 0 ? std::min(count, kWaypointCapacity) : 0);
  StoreAuthor(map);
  PrepareForSave(map);
  return map;
}

/// Every object of a map, the first of each kind, or a lone scenery.
inline Selection SelectSome(const MapDocument& map, bool everything, bool sceneryOnly = false) {
  Selection selection;
  const auto last = [everything](std::int16_t used) {
    return everything ? used : std::min<std::int16_t>(used, 0);
  };
  for (std::int16_t i = 0; i <= last(map.lastScenery); ++i) {
    selection.sceneries.Add(static_cast<std::uint8_t>(i));
  }
  if (sceneryOnly) return selection;
  for (std::int16_t i = 0; i <= last(map.lastPolygon); ++i) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) selection.vertices.Add({i, corner});
  }
  for (std::int16_t i = 0; i <= last(map.lastSpawn); ++i) {
    selection.spawns.Add(static_cast<std::uint8_t>(i));
  }
  for (std::int16_t i = 0; i <= last(map.lastCollider); ++i) {
    selection.colliders.Add(static_cast<std::uint8_t>(i));
  }
  for (std::int16_t i = 0; i <= last(map.lastWaypoint); ++i) selection.waypoints.Add(i);
  return selection;
}

/// Map files, then as many undo files.
inline std::vector<std::vector<std::byte>> MakeBaseFiles() {
  constexpr std::array kCounts = {0, 8, 500};
  std::vector<std::vector<std::byte>> files;
  for (const bool isUndo : {false, true}) {
    for (const int count : kCounts) {
      const MapDocument map = MakeBaseMap(count);
      if (isUndo) {
        const UndoItems undo{PackSelection(SelectSome(map, true), map), 0};
        WriteMapImage(map, &undo, files.emplace_back(kUndoFileSize));
      } else {
        WriteMapImage(map, nullptr, files.emplace_back(kMapFileSize));
      }
    }
  }
  return files;
}

}  // namespace vesmora
