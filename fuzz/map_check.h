// Reads a map file that may hold anything, draws it, writes it both ways and reads it back.
// No input may crash, hang or bring an index out of its table.
//
// An input is half a megabyte, mostly zeros, said in a few bytes:
//   byte 0   bit 0: an undo file; bit 1: the bytes from byte 3 on are the file itself; else
//            they are patches to a sound map
//   byte 1   which: an empty one, a small one or one with every table full
//   byte 2   what the map is looked at with
//   patches  field, first record (16 bits), further records, value: the value goes into that
//            field of all those records. A field's number is its place in kFields; both wrap.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <tuple>

#include "document/map_image.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {

/// A sound map with up to `count` objects of each kind; waypoints are counted in `unit`, which
/// is 1 in files and 256 in memory.
inline MapDocument MakeBaseMap(int count, int unit) {
  static const Bytes kFull = FileBytes(DataPath("full_saved.pmp"));
  MapDocument map;
  ReadMapImage(kFull, map, nullptr);
  map.polygons.SetCount(kPolygonCapacity);
  FindTableEnds(map);
  VisitTables(map, [count](auto& table) { table.SetCount(std::min(table.Count(), count)); });
  ZeroFreeSlots(map);
  for (Waypoint& waypoint : map.waypoints.slots) {
    waypoint.x *= unit;
    waypoint.y *= unit;
  }
  map.author = "Vesmora";
  StoreAuthor(map);
  return map;
}

inline Bytes MakeBaseFile(int count, bool isUndo) {
  const MapDocument map = MakeBaseMap(count, 1);
  Selection selection;
  SelectEverything(selection, map);
  const UndoItems undo{PackSelection(selection, map), 0};
  Bytes file(isUndo ? kUndoFileSize : kMapFileSize);
  WriteMapImage(map, file);
  if (isUndo) std::memcpy(&file[kMapFileSize], &undo, sizeof(undo.selection));
  return file;
}

/// Where the first record's value lies in the file, its size, the stride, the number of records.
using Field = std::tuple<std::size_t, std::size_t, std::size_t, std::size_t>;

constexpr std::array kFields = {
    // The first one's value is the new length of the file.
    Field(0, 3, 0, 1), Field(0, 8, 8, 63396), Field(0, 8, 28, 1200), Field(4, 4, 28, 1200),
    Field(16, 4, 28, 1200), Field(20, 8, 28, 1200), Field(33600, 8, 12, 1200),
    Field(33600, 4, 4, 3600), Field(48000, 2, 0, 1), Field(48005, 1, 1, 26),
    Field(48031, 4, 16, 30), Field(48035, 8, 16, 30), Field(48043, 2, 16, 30),
    Field(48544, 2, 2, 65535), Field(48944, 2, 402, 961), Field(434868, 4, 0, 1),
    Field(434872, 4, 4, 2), Field(434880, 2, 36, 255), Field(434892, 8, 36, 255),
    Field(434900, 4, 36, 255), Field(434904, 8, 36, 255), Field(444064, 4, 112, 500),
    Field(444072, 8, 112, 500), Field(444080, 8, 112, 500), Field(444088, 4, 112, 500),
    Field(444092, 4, 112, 500), Field(444096, 4, 112, 500), Field(444096, 4, 4, 20),
    Field(500064, 1, 16, 128), Field(500067, 1, 16, 128), Field(500068, 8, 16, 128),
    Field(500076, 4, 16, 128),
    // The selection of undo files: entries, counters, box, last indexes; the tool.
    Field(502112, 2, 2, 1200), Field(504512, 1, 1, 1200), Field(505712, 1, 1, 413),
    Field(506125, 2, 2, 500), Field(507125, 2, 2, 6), Field(507137, 4, 4, 4),
    Field(507153, 2, 2, 5), Field(507170, 2, 0, 1)};

inline Bytes DecodeMapFile(std::span<const std::uint8_t> data) {
  const auto bytes = std::as_bytes(data).subspan(3);
  if ((data[0] & 2U) != 0) return {bytes.begin(), bytes.end()};
  static const std::array kBases = {MakeBaseFile(0, false),   MakeBaseFile(8, false),
                                    MakeBaseFile(500, false), MakeBaseFile(0, true),
                                    MakeBaseFile(8, true),    MakeBaseFile(500, true)};
  Bytes file = kBases[data[1] % 3U + 3U * (data[0] & 1U)];
  for (auto rest = data.subspan(3); rest.size() > 4;) {
    const std::size_t field = rest[0] % kFields.size();
    const auto& [offset, size, stride, count] = kFields[field];
    if (rest.size() < 4 + size) break;
    const std::size_t first = rest[1] + 256U * rest[2];
    for (std::size_t record = first; field > 0 && record <= first + rest[3]; ++record) {
      const std::size_t at = offset + record % count * stride;
      if (at + size <= file.size()) std::memcpy(&file[at], &rest[4], size);
    }
    if (field == 0) file.resize((rest[4] + 256U * rest[5] + 65536U * rest[6]) % 508172);
    rest = rest.subspan(4 + size);
  }
  return file;
}

inline void CheckMapInput(std::span<const std::uint8_t> data) {
  if (data.size() < 3) return;
  const bool isUndo = (data[0] & 1U) != 0;
  const unsigned look = data[2];
  const Bytes file = DecodeMapFile(data);
  const auto bench = std::make_unique<Bench>();
  MapDocument& map = bench->map;
  Selection& selection = bench->selection;
  const std::size_t size = isUndo ? kUndoFileSize : kMapFileSize;
  if (!isUndo && file.size() != size) {
    EXPECT_EQ(bench->LoadBytes(file), LoadOutcome::kRefused);
    EXPECT_EQ(bench->dialogs.messages.size(), 1U);
  }
  PutFile(bench->folder / "input", file);
  const LoadOutcome outcome = bench->Load(bench->folder / "input", true, isUndo);
  const bool isCut = isUndo && file.size() < size;
  EXPECT_EQ(outcome, isCut ? LoadOutcome::kUnreadable : LoadOutcome::kLoaded);
  EXPECT_TRUE(!isCut || (map.polygons.last == -1 && bench->dialogs.messages.size() == 1));
  EXPECT_TRUE(isCut || !isUndo || bench->dialogs.messages.empty()) << "undo tells nothing";
  CheckRanges(map, selection);
  if (!isUndo && look % 8 != 0) {
    SelectEverything(selection, map);
    if (look % 8 > 4) selection.sceneries.SetCount(std::min(selection.sceneries.Count(), 1));
  }

  bench->dialogs.messages.clear();
  const auto again = std::make_unique<Bench>();
  bench->Snapshot();
  EXPECT_EQ(again->Load(bench->folder / "undo.tmp", false, true), LoadOutcome::kLoaded);
  again->map.fileName = map.fileName;
  EXPECT_TRUE(StateOf(again->map) == StateOf(map)) << "undo changes the map";
  EXPECT_EQ(PackSelection(again->selection, map), PackSelection(selection, map));

  EXPECT_EQ(bench->Saved().size(), kMapFileSize);
  const auto lasts = std::get<1>(StateOf(map));
  CheckRanges(map, selection);
  ClearLists(again->selection);
  EXPECT_EQ(again->Load(bench->folder / "saved.pmp"), LoadOutcome::kLoaded);
  EXPECT_TRUE(again->dialogs.messages.empty()) << "the damage is mended by the save";
  // Only an undo file's tables may have holes, behind which nothing is found again.
  EXPECT_TRUE(isUndo || std::get<1>(StateOf(again->map)) == lasts);
  CheckRanges(again->map, again->selection);
}

}  // namespace vesmora
