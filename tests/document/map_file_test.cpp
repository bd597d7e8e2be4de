#include "document/map_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>

#include "document/map_image.h"
#include "support/faulty_file_calls.h"
#include "support/map_builder.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::size_t kRandomIdOffset = 444060;

template <typename Value>
Value Peek(const Bytes& bytes, std::size_t offset) {
  Value value;
  std::memcpy(&value, &bytes.at(offset), sizeof(value));
  return value;
}

template <typename Value>
void Poke(Bytes& bytes, std::size_t offset, Value value) {
  std::memcpy(&bytes.at(offset), &value, sizeof(value));
}

Bytes WithoutRandomId(Bytes bytes) {
  Poke<std::int32_t>(bytes, kRandomIdOffset, 0);
  return bytes;
}

Message FileError(const std::string& text) { return {text, "File error", MessageIcon::kNone}; }

class MapFileTest : public testing::Test {
 protected:
  std::vector<Message>& Messages() { return bench_.dialogs.messages; }
  FileStatus SaveThrough(FileCalls& files, const std::string& path) {
    return WriteMap(bench_.Context(files), path, false);
  }
  LoadOutcome LoadUndo(const std::string& path) { return LoadMap(bench_.Context(), path, true); }

  MapWorkbench bench_;
  MapDocument& document_ = bench_.document;
  Selection& selection_ = bench_.selection;
};

TEST_F(MapFileTest, SavingAForeignMapGivesTheExpectedBytes) {
  for (const auto& [opened, expected] : {std::pair{"terrain.pmp", "terrain_saved.pmp"},
                                         {"full.pmp", "full_saved.pmp"},
                                         {"small.pmp", "small_saved.pmp"},
                                         {"settled.pmp", "settled.pmp"},
                                         {"terrain_saved.pmp", "terrain_saved.pmp"}}) {
    ASSERT_EQ(bench_.Load(DataPath(opened)), LoadOutcome::kLoaded);
    EXPECT_EQ(document_.fileName, DataPath(opened));
    const Bytes saved = WithoutRandomId(bench_.Saved());
    const Bytes wanted = WithoutRandomId(FileBytes(DataPath(expected)));
    ASSERT_EQ(saved.size(), wanted.size());
    const auto difference = std::ranges::mismatch(saved, wanted).in1 - saved.begin();
    EXPECT_EQ(static_cast<std::size_t>(difference), kMapFileSize) << opened << " differs there";
  }
}

TEST_F(MapFileTest, TheWritersChangesStayInMemory) {
  ASSERT_EQ(bench_.Load(DataPath("terrain.pmp")), LoadOutcome::kLoaded);
  const Bytes saved = bench_.Saved();
  MapWorkbench reopened;
  reopened.Load(bench_.folder / "saved.pmp");
  reopened.document.fileName = document_.fileName;
  EXPECT_EQ(StateOf(document_), StateOf(reopened.document));
  EXPECT_EQ(bench_.Saved(), saved) << "a second save changes nothing";
}

TEST_F(MapFileTest, OnlyTheExactSizeIsAMap) {
  Bytes larger = FileBytes(DataPath("settled.pmp"));
  larger.push_back(std::byte{7});
  const Bytes smaller(larger.begin(), larger.end() - 2);
  const Message refusal =
      FileError("File '" + (bench_.folder / "loaded.pmp") + "' is not Soldat 1.0.5b mapfile.");
  for (const Bytes& bytes : {larger, smaller, Bytes{}}) {
    Messages().clear();
    EXPECT_EQ(bench_.LoadBytes(bytes), LoadOutcome::kRefused);
    EXPECT_THAT(Messages(), ElementsAre(refusal));
    EXPECT_EQ(document_.fileName, "");
  }
  for (const Bytes& bytes : {larger, smaller}) {
    Messages().clear();
    EXPECT_EQ(bench_.LoadBytes(bytes, true), LoadOutcome::kLoaded);
    EXPECT_THAT(Messages(), ElementsAre(refusal));
    EXPECT_EQ(document_.lastPolygon, 89);
    EXPECT_EQ(document_.fileName, bench_.folder / "loaded.pmp");
    Bytes expected = FileBytes(DataPath("settled.pmp"));
    if (bytes.size() < expected.size()) expected.back() = std::byte{0};
    EXPECT_EQ(WithoutRandomId(bench_.Saved("loaded.pmp")), WithoutRandomId(expected));
  }
}

TEST_F(MapFileTest, AShortFileIsReadAsFarAsItGoes) {
  const Bytes whole = FileBytes(DataPath("terrain.pmp"));
  using Lasts = std::array<std::int16_t, 5>;
  for (const auto& [size, lasts] : {std::pair{1, Lasts{-1, -1, -1, -1, -1}},
                                    {48020, Lasts{219, -1, -1, -1, -1}},
                                    {60000, Lasts{219, 13, -1, -1, -1}},
                                    {500097, Lasts{219, 13, 59, 89, 2}}}) {
    ASSERT_EQ(bench_.Load(DataPath("full.pmp")), LoadOutcome::kLoaded);
    EXPECT_EQ(bench_.LoadBytes(Bytes(whole.begin(), whole.begin() + size), true),
              LoadOutcome::kLoaded);
    EXPECT_EQ(std::get<1>(StateOf(document_)), lasts) << size;
    EXPECT_EQ(document_.texture == TextureName{}, size == 1) << "never the old one";
  }
}

TEST_F(MapFileTest, ZerosAreAnEmptyMapAndAMissingFileIsNamed) {
  ASSERT_EQ(bench_.Load(DataPath("full.pmp")), LoadOutcome::kLoaded);
  EXPECT_EQ(bench_.LoadBytes(Bytes(kMapFileSize)), LoadOutcome::kLoaded);
  EXPECT_THAT(bench_.events, IsEmpty());
  EXPECT_EQ(StateOf(document_), DocumentState(Bytes(kMapFileSize), {-1, -1, -1, -1, -1},
                                              bench_.folder / "loaded.pmp", "", 0));
  EXPECT_EQ(bench_.Load("/no such/Map.pmp", true), LoadOutcome::kRefused);
  EXPECT_THAT(Messages(), ElementsAre(FileError("File '/no such/Map.pmp' not found.")));
}

TEST_F(MapFileTest, AnUnreadableFileChangesNothing) {
  ASSERT_EQ(bench_.Load(DataPath("terrain.pmp")), LoadOutcome::kLoaded);
  SelectEverything(selection_, document_);
  const auto before = StateOf(document_);
  FaultyFileCalls broken;
  broken.FailAll("Read", EIO);
  for (const bool isUndo : {false, true}) {
    Messages().clear();
    EXPECT_EQ(LoadMap(bench_.Context(broken), DataPath("small.pmp"), isUndo),
              LoadOutcome::kUnreadable);
    EXPECT_THAT(Messages(), ElementsAre(AllOf(Field(&Message::title, "File error"),
                                              Field(&Message::text, HasSubstr("small.pmp")))));
  }
  EXPECT_EQ(bench_.Load(bench_.folder.Path()), LoadOutcome::kUnreadable) << "a folder";
  EXPECT_EQ(StateOf(document_), before);
  EXPECT_EQ(selection_.vertices.Count(), 660);
}

TEST_F(MapFileTest, AFailedSaveChangesNeitherFileNorDocument) {
  const Bytes old = FileBytes(DataPath("small.pmp"));
  const std::string path = bench_.folder / "map.pmp";
  ASSERT_EQ(bench_.Load(DataPath("full.pmp")), LoadOutcome::kLoaded);
  document_.author = " ";
  document_.polygons[0].vertices[1] = document_.polygons[0].vertices[0];  // worth a warning
  const auto start = std::make_unique<MapDocument>(document_);
  const DocumentState before = StateOf(document_);
  const auto failedSave = [&](FaultyFileCalls& files) {
    document_ = *start;
    SelectEverything(selection_, document_);
    PutFile(path, old);
    bench_.events.clear();
    const FileStatus status = SaveThrough(files, path);
    if (status.Ok()) {
      EXPECT_NE(FileBytes(path), old);
      EXPECT_EQ(FileBytes(path).size(), kMapFileSize);
      return false;
    }
    EXPECT_FALSE(status.reason.empty());
    EXPECT_TRUE(FileBytes(path) == old) << files.Names().back();
    EXPECT_TRUE(StateOf(document_) == before) << files.Names().back();
    EXPECT_EQ(selection_.vertices.Count(), 1200);
    EXPECT_THAT(bench_.events, IsEmpty());
    return true;
  };
  int failures = 0;
  for (const auto lasting : {FaultyFileCalls::Lasting::kOnce, FaultyFileCalls::Lasting::kForGood}) {
    bool isReached = true;
    for (int call = 1; isReached; ++call) {
      FaultyFileCalls files;
      files.FailCall(call, EIO, lasting);
      failures += failedSave(files) ? 1 : 0;
      isReached = files.Count() >= call;
    }
  }
  EXPECT_GE(failures, 10);
  FaultyFileCalls fullDisk;
  fullDisk.LimitFileSize(kMapFileSize - 1);
  EXPECT_TRUE(failedSave(fullDisk));
}

TEST_F(MapFileTest, ADamagedPolygonCountIsToldOnceAndClamped) {
  for (const auto& [count, last] :
       {std::pair{400, 399}, {0, -1}, {401, 399}, {32767, 399}, {-1, -1}, {-32768, -1}}) {
    Bytes file = FileBytes(DataPath("terrain.pmp"));
    Poke(file, 48000, static_cast<std::int16_t>(count));
    Messages().clear();
    EXPECT_EQ(bench_.LoadBytes(file), LoadOutcome::kLoaded);
    EXPECT_EQ(document_.lastPolygon, last);
    EXPECT_EQ(document_.lastSpawn, 13) << "loading goes on";
    EXPECT_EQ(Messages().size(), count == last + 1 ? 0U : 1U) << count;
    for (const Message& message : Messages()) {
      EXPECT_EQ(message.title, "File error");
      EXPECT_THAT(message.text, AllOf(HasSubstr("loaded.pmp"), HasSubstr(std::to_string(count))));
    }
    EXPECT_EQ(Peek<std::int16_t>(bench_.Saved(), 48000), last + 1);
  }
}

TEST_F(MapFileTest, WaypointsAreWholeUnitsInEveryFile) {
  constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
  using Row = std::pair<std::int32_t, std::int32_t>;
  for (const auto& [memory, file] : {Row(2688, 10), Row(2944, 12), Row(-128, 0), Row(896, 4),
                                     Row(-2944, -12), Row(kMax, 8388608), Row(kMin, -8388608)}) {
    for (const bool isUndo : {false, true}) {
      document_.lastWaypoint = -1;
      Waypoint& waypoint = AddWaypoint(document_, 0, 0, 1);
      waypoint.x = memory;
      waypoint.y = memory;
      document_.waypoints[1].y = 777;  // not in use
      const Bytes bytes = isUndo ? bench_.Snapshot() : bench_.Saved();
      const std::int32_t again = file == 8388608 ? kMax : file * 256;
      EXPECT_EQ(Peek<std::int32_t>(bytes, 444064 + 8), file) << memory;
      EXPECT_EQ(Peek<std::int32_t>(bytes, 444064 + 12), file) << memory;
      EXPECT_EQ(Peek<std::int32_t>(bytes, 444064 + 112 + 12), isUndo ? 777 : 0);
      EXPECT_EQ(waypoint.x, again);
      EXPECT_EQ(waypoint.y, again);
      EXPECT_EQ(document_.waypoints[1].y, isUndo ? 777 : 0);
    }
  }
}

TEST_F(MapFileTest, SelectedCornersStayInTheirPlaces) {
  for (int i = 0; i < 3; ++i) AddTriangle(document_, {{{0, 0}, {10, 0}, {0, 10}}});  // turned
  AddTriangle(document_, {{{0, 0}, {0, 10}, {10, 0}}});
  using Reference = VertexReference;
  for (const Reference vertex : {Reference{0, 0}, {0, 2}, {1, 1}, {2, 0}, {2, 1}, {3, 0}}) {
    selection_.vertices.Add(vertex);
  }
  bench_.Saved();
  EXPECT_THAT(selection_.vertices.Items(),
              ElementsAre(Reference{0, 1}, Reference{0, 2}, Reference{1, 0}, Reference{2, 0},
                          Reference{2, 1}, Reference{3, 0}));
}

TEST_F(MapFileTest, TheLastScenerySlotIsNeverKept) {
  for (const bool isUndo : {false, true}) {
    document_.lastScenery = -1;
    for (int i = 0; i < kSceneryCapacity; ++i) AddScenery(document_, 1, 1, 1);
    selection_.sceneries.Add(254);
    UpdateSelectionBox(selection_, document_);
    const Bytes bytes = isUndo ? bench_.Snapshot() : bench_.Saved();
    EXPECT_EQ(document_.lastScenery, 253);
    EXPECT_EQ(Peek<std::uint8_t>(bytes, 434880 + 254 * 36), isUndo ? 1 : 0);
    EXPECT_TRUE(selection_.Empty() && selection_.box == SelectionBox{});
  }
}

TEST_F(MapFileTest, RandomIdIsDrawnFrom1To1000) {
  using Row = std::pair<double, std::int32_t>;
  for (const auto& [random, id] : {Row(0, 1), Row(0.0009999, 1), Row(0.001, 2), Row(0.5, 501),
                                   Row(std::nextafter(1.0, 0.0), 1000)}) {
    bench_.nextRandom = random;
    document_.randomId = 0;
    EXPECT_EQ(Peek<std::int32_t>(bench_.Saved(), kRandomIdOffset), id);
    document_.randomId = 0;
    EXPECT_EQ(Peek<std::int32_t>(bench_.Snapshot(), kRandomIdOffset), id);
    EXPECT_EQ(document_.randomId, id);
  }
}

TEST_F(MapFileTest, ATextureMayFillItsField) {
  const std::string name = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  document_.texture = MakeTextureName(name + "too long");
  AddSpawn(document_, 1, 1, 2);
  bench_.Saved();
  MapWorkbench reopened;
  reopened.Load(bench_.folder / "saved.pmp");
  EXPECT_EQ(std::string(reopened.document.texture.data(), 26), name);
  EXPECT_EQ(reopened.document.spawns[0], document_.spawns[0]);
}

class UndoFileTest : public MapFileTest {
 protected:
  void BuildUnpreparedMap() {
    AddTriangle(document_, {{{0, 0}, {10, 0}, {0, 10}}});  // wrong order, odd normals
    AddTriangle(document_, {{{0, 0}, {0, 0}, {0, 10}}});
    AddSpawn(document_, 0.25f, 0.25f, 1);
    AddScenery(document_, 1, 2, 3);
    AddCollider(document_, 3, 4, 5);
    AddCollider(document_, 6, 7, 8);
    AddWaypoint(document_, 10, 20, 1);
    SelectEverything(selection_, document_);
    selection_.waypoints.Clear();
    // Previews and clipboard records behind the last ones.
    document_.spawns[1].active = 1;
    document_.sceneries[1].active = 1;
    document_.waypoints[1].active = 1;
    document_.colliders[2].active = 1;
    document_.polygons[2].vertices[0].x = 7;
    document_.fileName = "/maps/open.pmp";
    document_.author = "Ann";
    document_.toolIndex = ToolMode::kAddScenery;
  }
};

TEST_F(UndoFileTest, BringsBackExactlyWhatWasThere) {
  BuildUnpreparedMap();
  const std::string path = bench_.folder / "undo.tmp";
  PutFile(path, Bytes(kUndoFileSize + 9, std::byte{0x5A}));
  const Bytes bytes = bench_.Snapshot();
  EXPECT_EQ(Bytes(bytes.begin() + kUndoFileSize, bytes.end()), Bytes(9, std::byte{0x5A}));
  EXPECT_EQ(Peek<std::int16_t>(bytes, 507170), 3);
  EXPECT_EQ(document_.polygons[0].vertices[0].x, 0);
  EXPECT_EQ(document_.normals[0].edges[0].x, 1);
  EXPECT_EQ(document_.spawns[0].x, 64);
  std::filesystem::remove(path);
  EXPECT_EQ(bench_.Snapshot().size(), 507172U);

  const DocumentState before = StateOf(document_);
  const Selection selected = selection_;
  ASSERT_EQ(bench_.Load(DataPath("full.pmp")), LoadOutcome::kLoaded);
  ClearSelection(selection_, bench_.display);
  document_.fileName = "/maps/open.pmp";
  document_.toolIndex = ToolMode::kEdit;
  EXPECT_EQ(LoadUndo(path), LoadOutcome::kLoaded);
  EXPECT_TRUE(StateOf(document_) == before);
  EXPECT_EQ(document_.lastCollider, 1);
  EXPECT_TRUE(std::ranges::equal(selection_.vertices.Items(), selected.vertices.Items()));
  EXPECT_THAT(selection_.colliders.Items(), ElementsAre(0, 1));
  EXPECT_EQ(selection_.TotalCounter(), selected.TotalCounter());
  EXPECT_EQ(selection_.box, selected.box);
  EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(UndoFileTest, WhateverABlockHoldsNoIndexLeavesItsTable) {
  BuildUnpreparedMap();
  Bytes file = bench_.Snapshot();
  const std::string path = bench_.folder / "hostile.tmp";
  std::mt19937 random(11);
  const auto all = [](const auto& list, int last) {
    return list.last >= -1 && std::ranges::all_of(list.Items(), [last](auto index) {
             return index >= 0 && index <= last;
           });
  };
  for (std::size_t round = 0; round < 40; ++round) {
    constexpr std::array kFills = {0xFF, 0x7F, 0x80, 0x00};
    for (std::size_t i = kMapFileSize; i < kUndoFileSize; ++i) {
      const auto any = static_cast<int>(random() % (round < 10 ? 4 : 256));  // small: near misses
      file[i] = static_cast<std::byte>(round < kFills.size() ? kFills[round] : any);
    }
    PutFile(path, file);
    ASSERT_EQ(LoadUndo(path), LoadOutcome::kLoaded);
    const auto [polygon, spawn, scenery, waypoint, collider] = std::get<1>(StateOf(document_));
    EXPECT_TRUE(polygon >= -1 && polygon < 400 && spawn >= -1 && spawn < 30 && scenery >= -1 &&
                scenery < 255 && waypoint >= -1 && waypoint < 500 && collider >= -1 &&
                collider < 128);
    for (const VertexReference& vertex : selection_.vertices.Items()) {
      EXPECT_TRUE(vertex.polygon >= 0 && vertex.polygon <= polygon && vertex.corner < 3);
    }
    EXPECT_TRUE(all(selection_.spawns, spawn) && all(selection_.sceneries, scenery) &&
                all(selection_.colliders, collider) && all(selection_.waypoints, waypoint));
    const int tool = static_cast<int>(document_.toolIndex);
    EXPECT_TRUE(tool >= 0 && tool < 6);
    EXPECT_THAT(Messages(), IsEmpty());
  }
}

TEST_F(UndoFileTest, ACutOneIsRefusedAsAWhole) {
  BuildUnpreparedMap();
  Bytes file = bench_.Snapshot();
  document_.spawns[0].team = 2;
  const DocumentState before = StateOf(document_);
  for (const std::size_t size : {kUndoFileSize - 1, kMapFileSize, std::size_t{0}}) {
    file.resize(size);
    PutFile(bench_.folder / "cut.tmp", file);
    Messages().clear();
    EXPECT_EQ(LoadUndo(bench_.folder / "cut.tmp"), LoadOutcome::kUnreadable);
    EXPECT_EQ(StateOf(document_), before);
    EXPECT_THAT(Messages(), ElementsAre(Field(&Message::title, "File error")));
  }
}

}  // namespace
}  // namespace vesmora
