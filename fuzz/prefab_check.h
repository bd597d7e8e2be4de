// Imports a prefab that may hold anything into maps of any fill. It is taken whole, cut to what
// fits, or refused with the map as it was; never is a record of what was there before changed,
// and what is exported afterwards is a sound prefab.
//
//   byte 0   bit 0: the bytes from byte 2 on are the file itself; bit 1: quietly; bit 2: with
//            Shift
//   byte 1   how full the map is
//   else     three last indexes (16 bits), how much is missing at the end (16 bits), then the
//            records, repeated until there are enough
#pragma once

#include "document/prefab_file.h"
#include "map_check.h"
#include "support/tool_bench.h"
#include "tools/prefab_import.h"

namespace vesmora {

inline std::int16_t WordAt(std::span<const std::byte> bytes, std::size_t at) {
  std::int16_t word = 0;
  if (at + sizeof(word) <= bytes.size()) std::memcpy(&word, &bytes[at], sizeof(word));
  return word;
}

inline Bytes DecodePrefab(std::span<const std::uint8_t> data) {
  const auto bytes = std::as_bytes(data);
  if ((data[0] & 1U) != 0 || data.size() <= 10) return {bytes.begin() + 2, bytes.end()};
  const auto records = [&](std::size_t at, int capacity) {
    return static_cast<std::size_t>(std::clamp(WordAt(bytes, at) + 1, 0, capacity + 1));
  };
  Bytes file(29 + 120 * records(2, 400) + 36 * records(4, 255) + 16 * records(6, 128),
             std::byte{' '});
  std::memcpy(file.data(), "1.0", 3);
  std::memcpy(&file[3], &bytes[2], 6);
  const auto pattern = bytes.subspan(10);
  for (std::size_t at = 29; at < file.size(); ++at) file[at] = pattern[(at - 29) % pattern.size()];
  file.resize(file.size() - std::min<std::size_t>(WordAt(bytes, 8) & 0xFFFF, file.size()));
  return file;
}

/// What `bytes` has at the end of a table, or before it, is `count` of its records.
template <typename Table>
void ExpectRecords(const Table& table, int first, int count, const std::byte* bytes,
                   std::size_t stride = sizeof(table[0])) {
  for (int i = 0; i < count && first + i < static_cast<int>(table.size()); ++i, bytes += stride) {
    auto expected = table[0];
    std::memcpy(&expected, bytes, sizeof(expected));
    using Record = decltype(expected);
    if constexpr (std::is_same_v<Record, SceneryObject> || std::is_same_v<Record, Collider>) {
      expected.active = 1;  // whatever the prefab says
    }
    const auto& record = table[static_cast<std::size_t>(first + i)];
    EXPECT_EQ(std::memcmp(&record, &expected, sizeof(record)), 0) << "another record " << first + i;
  }
}

inline void CheckPrefabInput(std::span<const std::uint8_t> data) {
  if (data.size() < 2) return;
  static const std::array kMaps = {MakeBaseMap(0, 256),   MakeBaseMap(8, 256),
                                   MakeBaseMap(120, 256), MakeBaseMap(250, 256),
                                   MakeBaseMap(396, 256), MakeBaseMap(500, 256)};
  const MapDocument& before = kMaps[data[1] % kMaps.size()];
  const bool isQuiet = (data[0] & 2U) != 0;
  const Bytes file = DecodePrefab(data);
  ToolBench bench;
  MapDocument& map = bench.map;
  map = before;
  bench.state.shiftDown = (data[0] & 4U) != 0;
  PutFile(bench.folder / "piece.pre", file);
  ImportPrefab(bench.editing, bench.folder / "piece.pre",
               isQuiet ? ImportManner::kQuiet : ImportManner::kPlaced);

  const std::optional<Prefab> prefab = ReadPrefab(file);
  const PrefabHeader header = ReadPrefabHeader(file);
  std::map<std::string, int> told;
  for (const Message& message : bench.dialogs.messages) ++told[message.title];
  const bool isTaken = prefab && (header.isKnownVersion || bench.state.shiftDown);
  EXPECT_EQ(told["File error"], isQuiet || (isTaken && header.isKnownVersion) ? 0 : 1);
  bool fits = true;
  const auto count = [&](int last, int lastBefore, int added, int capacity) {
    const int fitting = isTaken ? std::min(added, capacity - 1 - lastBefore) : 0;
    fits = fits && (!isTaken || fitting == added);
    // An undo step drops what lies in the last scenery slot.
    EXPECT_TRUE(last == lastBefore + fitting || (last == 253 && lastBefore + fitting == 254));
  };
  count(map.lastPolygon, before.lastPolygon, header.polygonCount, kPolygonCapacity);
  count(map.lastScenery, before.lastScenery, header.sceneryCount, kSceneryCapacity);
  count(map.lastCollider, before.lastCollider, header.colliderCount, kColliderCapacity);
  EXPECT_EQ(told["Problem"], fits || isQuiet ? 0 : 1) << "an overflow is told once";
  EXPECT_TRUE(isTaken || (bench.selection.Empty() && !bench.selection.placing));
  if (isQuiet && isTaken) {
    const std::byte* at = file.data() + 29;
    ExpectRecords(map.polygons, before.lastPolygon + 1, header.polygonCount, at, 120);
    ExpectRecords(map.normals, before.lastPolygon + 1, header.polygonCount, at + 84, 120);
    at += 120 * header.polygonCount;
    ExpectRecords(map.sceneries, before.lastScenery + 1, header.sceneryCount, at);
    at += 36 * header.sceneryCount;
    ExpectRecords(map.colliders, before.lastCollider + 1, header.colliderCount, at);
  }
  if (bench.selection.placing) {
    bench.Move(-1e9f, 3e9f);
    bench.Click(20, 20);
    EXPECT_FALSE(bench.selection.placing) << "still following";
  }
  const auto old = [](const auto& table, int last, const auto& tableBefore) {
    ExpectRecords(table, 0, last + 1, reinterpret_cast<const std::byte*>(tableBefore.data()));
  };
  old(map.polygons, before.lastPolygon, before.polygons);
  old(map.normals, before.lastPolygon, before.normals);
  old(map.sceneries, std::min(before.lastScenery, map.lastScenery), before.sceneries);
  old(map.spawns, kSpawnCapacity - 1, before.spawns);
  old(map.waypoints, kWaypointCapacity - 1, before.waypoints);
  EXPECT_EQ(map.author, before.author);
  const auto exported = ReadPrefab(WritePrefab(map));
  ASSERT_TRUE(exported.has_value());
  EXPECT_EQ(static_cast<int>(exported->polygons.size()), map.lastPolygon + 1);
}

}  // namespace vesmora
