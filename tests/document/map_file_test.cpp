// Map files: what is read, what a new map keeps, and every byte of a save.
#include "document/map_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "document/map_image.h"
#include "document/prefab_file.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

std::int32_t Peek(const Bytes& bytes, std::size_t offset) {
  std::int32_t value = 0;
  std::memcpy(&value, &bytes.at(offset), sizeof(value));
  return value;
}

Bytes WithoutRandomId(Bytes bytes) {
  std::memset(&bytes.at(444060), 0, 4);
  return bytes;
}

class MapFileTest : public testing::Test, protected Bench {};

TEST_F(MapFileTest, SavingAForeignMapGivesTheExpectedBytes) {
  for (const auto& [opened, expected] : {std::pair{"terrain.pmp", "terrain_saved.pmp"},
                                         {"full.pmp", "full_saved.pmp"},
                                         {"small.pmp", "small_saved.pmp"},
                                         {"settled.pmp", "settled.pmp"}}) {
    ASSERT_EQ(Load(DataPath(opened)), LoadOutcome::kLoaded);
    const Bytes saved = WithoutRandomId(Saved());
    const Bytes wanted = WithoutRandomId(FileBytes(DataPath(expected)));
    ASSERT_EQ(saved.size(), wanted.size());
    const auto difference = std::ranges::mismatch(saved, wanted).in1 - saved.begin();
    EXPECT_EQ(static_cast<std::size_t>(difference), kMapFileSize) << opened << " differs there";
    Bench reopened;
    reopened.Load(folder / "saved.pmp");
    reopened.map.fileName = map.fileName;
    EXPECT_EQ(StateOf(map), StateOf(reopened.map)) << "the changes stay in memory";
  }
}

TEST_F(MapFileTest, ADamagedPolygonCountIsToldOnceAndClamped) {
  for (const auto& [count, used] : {std::pair{400, 400}, {0, 0}, {401, 400}, {-1, 0}}) {
    Bytes file = FileBytes(DataPath("terrain.pmp"));
    std::memcpy(&file[48000], &count, 2);
    dialogs.messages.clear();
    EXPECT_EQ(LoadBytes(file), LoadOutcome::kLoaded);
    EXPECT_EQ(map.polygons.last, used - 1);
    EXPECT_EQ(map.spawns.last, 13) << "loading goes on";
    const std::string damage = " is damaged: it names " + std::to_string(count) + " polygons, " +
                               std::to_string(used) + " are used.";
    EXPECT_EQ(dialogs.messages, std::vector(count == used ? 0U : 1U,
                                            FileError("File '" + map.fileName + "'" + damage)));
  }
}

TEST_F(MapFileTest, EveryFileHasWholeWaypointsAndItsNumberAndOnlyASaveDropsTheLastScenery) {
  for (const bool isUndo : {false, true}) {
    for (const auto& [memory, file] : {std::pair{2688, 10}, {2944, 12}, {-2944, -12}}) {
      map.waypoints.last = -1;
      Waypoint& waypoint = AddWaypoint(map, 0, 0, 1);
      waypoint.x = waypoint.y = memory;
      const Bytes bytes = Saved("saved.pmp", isUndo);
      EXPECT_TRUE(Peek(bytes, 444072) == file && Peek(bytes, 444076) == file) << memory;
      EXPECT_TRUE(waypoint.x == file * 256 && waypoint.y == file * 256);
    }
    for (const auto& [drawn, id] : {std::pair{0.0, 1}, {0.0009999, 1}, {0.9999, 1000}}) {
      nextRandom = drawn;
      EXPECT_EQ(Peek(Saved("saved.pmp", isUndo), 444060), id);
    }
    map.sceneries.last = -1;
    for (int i = 0; i < kSceneryCapacity; ++i) AddScenery(map, 1, 1, 1);
    selection.sceneries.Clear();
    selection.sceneries.Append(254);
    UpdateSelectionBox(selection, map);
    selection.moveSnapshotTaken = true;
    Saved("saved.pmp", isUndo);
    EXPECT_EQ(map.sceneries.last, isUndo ? 254 : 253);
    EXPECT_EQ(selection.Empty(), !isUndo);
    EXPECT_EQ(selection.box == SelectionBox{}, !isUndo);
    EXPECT_EQ(selection.moveSnapshotTaken, isUndo);
    EXPECT_TRUE(Load(folder / "saved.pmp", false, isUndo) == LoadOutcome::kLoaded);
    EXPECT_EQ(map.sceneries.last, isUndo ? 254 : 253);
  }
}

TEST_F(MapFileTest, SelectedCornersStayInTheirPlaces) {
  for (int i = 0; i < 3; ++i) AddTriangle(map, {{{0, 0}, {10, 0}, {0, 10}}});  // turned
  AddTriangle(map, {{{0, 0}, {0, 10}, {10, 0}}});
  using Corner = VertexReference;
  for (const Corner vertex : {Corner{0, 0}, {0, 2}, {1, 1}, {2, 0}, {2, 1}, {3, 0}}) {
    selection.vertices.Append(vertex);
  }
  Saved();
  const std::vector<Corner> after = {{0, 1}, {0, 2}, {1, 0}, {2, 0}, {2, 1}, {3, 0}};
  EXPECT_TRUE(std::ranges::equal(selection.vertices.Used(), after));
}

TEST_F(MapFileTest, TheFirstInactiveSlotEndsATable) {
  // Of spawns, sceneries, waypoints and colliders; two have a single byte.
  for (const auto& [active, lasts] :
       {std::pair{0, "0000"}, {1, "1111"}, {-1, "1000"}, {257, "1101"}}) {
    map.spawns[0].active = map.waypoints[0].active = 1;
    map.sceneries[0].active = map.colliders[0].active = 1;
    map.spawns[1].active = map.waypoints[1].active = active;
    map.sceneries[1].active = map.colliders[1].active = static_cast<std::uint8_t>(active);
    FindTableEnds(map);
    std::string found;
    for (const int last :
         {map.spawns.last, map.sceneries.last, map.waypoints.last, map.colliders.last}) {
      found += std::to_string(last);
    }
    EXPECT_EQ(found, lasts) << active;
  }
}

TEST_F(MapFileTest, NewKeepsWhatItDoesNotSet) {
  Bytes file(kMapFileSize);
  for (std::size_t i = 0; i < file.size(); ++i) file[i] = static_cast<std::byte>(i % 251 + 1);
  EXPECT_EQ(ReadMapImage(file, map, nullptr).divisionPosition, 434868U);
  EXPECT_EQ(static_cast<std::byte>(map.backgroundColor1.blue), file[434872]);
  VisitTables(map, [](auto& table) { table.last = 7; });
  map.fileName = "/maps/old.pmp";
  map.toolIndex = ToolMode::kAddSpawn;
  ResetToNewMap(map);
  Bytes expected(kMapFileSize);
  // Loose bytes 1 and 2; block, sector grid, loose bytes 4 and 5; the number, new at every save.
  for (const auto& [offset, size] : {std::pair{48002, 2}, {48511, 386357}, {444060, 4}}) {
    std::copy_n(file.begin() + offset, size, expected.begin() + offset);
  }
  std::memcpy(&expected[48004], "\nbanana.bmp", 11);
  expected[434868] = std::byte{30};
  std::memset(&expected[434872], 255, 8);
  EXPECT_EQ(StateOf(map), DocumentState(expected, {-1, -1, -1, -1, -1}, "", "New", 0));
}

TEST_F(MapFileTest, TextsAreCutToTheirFields) {
  EXPECT_EQ(MakeTextureName("ABCDEFGHIJKLMNOPQRSTUVWXYZ too long").back(), 'Z');
  const std::string longest(128, 'x');
  using Row = std::pair<std::string, std::string>;
  for (const auto& [author, stored] :
       {Row(" A\xE4 b ", " A\xE4 b "), Row(longest + "yy", longest), Row("   ", "Unknow")}) {
    for (Collider& collider : map.colliders.slots) collider.authorChar = 'z';
    map.author = author;
    StoreAuthor(map);
    // One zero ends the name; what stood behind it stays.
    const std::string expected = stored + '\0' + std::string(128, 'z');
    for (std::size_t i = 0; i < 128; ++i)
      EXPECT_EQ(map.colliders.slots[i].authorChar, static_cast<std::uint8_t>(expected[i])) << i;
    EXPECT_EQ(ReadAuthor(map), stored.substr(0, 21));
  }
}

TEST(PrefabFileTest, SoundPrefabsOfOthersAreReadWholeAndWrittenAsTheyWere) {
  for (const auto& [name, polygons] : {std::pair("bunker.pre", 12), {"large.pre", 60}}) {
    const Bytes whole = FileBytes(DataPath(name));
    const PrefabHeader header = ReadPrefabHeader(whole);
    EXPECT_EQ(header.polygonCount, polygons) << name;
    const std::optional<Prefab> prefab = ReadPrefab(whole);
    ASSERT_TRUE(prefab) << name;
    const auto map = std::make_unique<MapDocument>();
    const auto take = [](const auto& from, auto& table) {
      for (const auto& record : from) ASSERT_TRUE(table.Append(record));
    };
    take(prefab->polygons, map->polygons);
    take(prefab->sceneries, map->sceneries);
    take(prefab->colliders, map->colliders);
    map->author = header.author;
    EXPECT_EQ(WritePrefab(*map), whole) << name;
    map->author = "12345678901234567890+";
    EXPECT_EQ(ReadPrefabHeader(WritePrefab(*map)).author, "12345678901234567890");
    for (std::size_t size = 0; size < whole.size(); ++size) {
      EXPECT_FALSE(ReadPrefab(std::span(whole).first(size))) << "cut at " << size;
      EXPECT_EQ(ReadPrefabHeader(std::span(whole).first(size)).isKnownVersion, size >= 3);
    }
  }
}

TEST(PrefabFileTest, ThoseOfTheProgramAreSoundAndSpellAnyAuthor) {
  std::string letters;
  for (const std::string folder : {"../../data/Prefab/", "../../data/Alphabet/"}) {
    for (const std::string& file : ListFiles(SystemFileCalls(), DataPath(folder)).names) {
      const auto prefab = ReadPrefab(FileBytes(DataPath(folder + file)));
      ASSERT_TRUE(prefab && prefab->polygons.size() + prefab->sceneries.size() > 0) << file;
      if (!folder.ends_with("Alphabet/")) continue;
      letters += static_cast<char>(std::stoi(file));
      EXPECT_LE(prefab->polygons.size() * 19, kPolygonCapacity) << "the longest author";
    }
  }
  const std::string needed = "!\"#%&'()*+,-./0123456789:;<=>?@[]_abcdefghijklmnopqrstuvwxyz";
  for (const char letter : needed + "\344\366\345") EXPECT_NE(letters.find(letter), letters.npos);
}

}  // namespace
}  // namespace vesmora
