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
#include "support/bench.h"
#include "tools/prefab_import.h"

namespace vesmora {

/// The first records of a table are what they were.
template <typename TableType>
void ExpectKept(const TableType& table, int count, const TableType& before) {
  const auto& old = before.slots;
  EXPECT_TRUE(std::equal(old.begin(), old.begin() + count, table.slots.begin()));
}

inline void CheckPrefabInput(std::span<const std::uint8_t> data) {
  if (data.size() < 2) return;
  static const std::array kMaps = {MakeBaseMap(0, 256), MakeBaseMap(120, 256),
                                   MakeBaseMap(396, 256), MakeBaseMap(500, 256)};
  const MapDocument& before = kMaps[data[1] % kMaps.size()];
  const bool isQuiet = (data[0] & 1U) != 0;
  const auto bytes = std::as_bytes(data).subspan(2);
  Bench bench;
  MapDocument& map = bench.map;
  map = before;
  bench.editor.shiftDown = (data[0] & 2U) != 0;
  PutFile(bench.folder / "piece.pre", {bytes.begin(), bytes.end()});
  ImportPrefab(bench.editor, bench.folder / "piece.pre",
               isQuiet ? ImportManner::kQuiet : ImportManner::kPlaced);

  const PrefabHeader header = ReadPrefabHeader(bytes);
  const bool isTaken = ReadPrefab(bytes) && (header.isKnownVersion || bench.editor.shiftDown);
  const auto count = [&](const auto& table, const auto& old, int added) {
    const int expected = std::min(old.Count() + (isTaken ? added : 0), table.kCapacity);
    EXPECT_EQ(table.Count(), expected);
  };
  count(map.polygons, before.polygons, header.polygonCount);
  count(map.sceneries, before.sceneries, header.sceneryCount);
  count(map.colliders, before.colliders, header.colliderCount);
  const Activity& activity = bench.editor.activity;
  if (activity.Is(ActivityKind::kPlacement)) {
    bench.Move(-1e9f, 3e9f);
    bench.Click(20, 20);
  }
  EXPECT_TRUE(activity.Is(ActivityKind::kNone)) << "still following";
  ExpectKept(map.polygons, before.polygons.Count(), before.polygons);
  ExpectKept(map.sceneries, before.sceneries.Count(), before.sceneries);
  ExpectKept(map.spawns, kSpawnCapacity, before.spawns);
  ExpectKept(map.waypoints, kWaypointCapacity, before.waypoints);
  const auto exported = ReadPrefab(WritePrefab(map));
  ASSERT_TRUE(exported.has_value());
  EXPECT_EQ(static_cast<int>(exported->polygons.size()), map.polygons.Count());
}

}  // namespace vesmora
