// Imports a prefab that may hold anything into maps of any fill. It is taken, cut to what fits,
// or refused with the map as it was; never is a record of what was there before changed, and
// what is exported afterwards is a sound prefab.
//
//   byte 0   bit 0: quietly; bit 1: with Shift
//   byte 1   how full the map is
//   else     the file
#pragma once

#include "document/prefab_file.h"
#include "map_check.h"
#include "support/tool_bench.h"
#include "tools/prefab_import.h"

namespace vesmora {

/// The first records of a table are what they were.
template <typename Table>
void ExpectKept(const Table& table, int last, const Table& before) {
  EXPECT_TRUE(std::equal(before.begin(), before.begin() + last + 1, table.begin()));
}

inline void CheckPrefabInput(std::span<const std::uint8_t> data) {
  if (data.size() < 2) return;
  static const std::array kMaps = {MakeBaseMap(0, 256), MakeBaseMap(120, 256),
                                   MakeBaseMap(396, 256), MakeBaseMap(500, 256)};
  const MapDocument& before = kMaps[data[1] % kMaps.size()];
  const bool isQuiet = (data[0] & 1U) != 0;
  const auto bytes = std::as_bytes(data).subspan(2);
  ToolBench bench;
  MapDocument& map = bench.map;
  map = before;
  bench.state.shiftDown = (data[0] & 2U) != 0;
  PutFile(bench.folder / "piece.pre", {bytes.begin(), bytes.end()});
  ImportPrefab(bench.editing, bench.folder / "piece.pre",
               isQuiet ? ImportManner::kQuiet : ImportManner::kPlaced);

  const PrefabHeader header = ReadPrefabHeader(bytes);
  const bool isTaken = ReadPrefab(bytes) && (header.isKnownVersion || bench.state.shiftDown);
  const auto count = [&](int last, int lastBefore, int added, int capacity) {
    const int expected = isTaken ? std::min(lastBefore + added, capacity - 1) : lastBefore;
    // An undo step drops what lies in the last scenery slot.
    EXPECT_TRUE(last == expected || (last == 253 && expected == 254));
  };
  count(map.lastPolygon, before.lastPolygon, header.polygonCount, kPolygonCapacity);
  count(map.lastScenery, before.lastScenery, header.sceneryCount, kSceneryCapacity);
  count(map.lastCollider, before.lastCollider, header.colliderCount, kColliderCapacity);
  if (bench.selection.placing) {
    bench.Move(-1e9f, 3e9f);
    bench.Click(20, 20);
  }
  EXPECT_FALSE(bench.selection.placing) << "still following";
  ExpectKept(map.polygons, before.lastPolygon, before.polygons);
  ExpectKept(map.normals, before.lastPolygon, before.normals);
  ExpectKept(map.sceneries, std::min(before.lastScenery, map.lastScenery), before.sceneries);
  ExpectKept(map.spawns, kSpawnCapacity - 1, before.spawns);
  ExpectKept(map.waypoints, kWaypointCapacity - 1, before.waypoints);
  const auto exported = ReadPrefab(WritePrefab(map));
  ASSERT_TRUE(exported.has_value());
  EXPECT_EQ(static_cast<int>(exported->polygons.size()), map.lastPolygon + 1);
}

}  // namespace vesmora
