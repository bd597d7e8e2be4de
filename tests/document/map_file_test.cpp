// Map files: what is read, what a new map keeps, and every byte of a save.
#include "document/map_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "document/map_image.h"
#include "document/prefab_file.h"
#include "support/map_builder.h"
#include "support/map_workbench.h"

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

class MapFileTest : public testing::Test, protected MapWorkbench {};

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
    MapWorkbench reopened;
    reopened.Load(folder / "saved.pmp");
    reopened.document.fileName = document.fileName;
    EXPECT_EQ(StateOf(document), StateOf(reopened.document)) << "the changes stay in memory";
  }
}

TEST_F(MapFileTest, ADamagedPolygonCountIsToldOnceAndClamped) {
  for (const auto& [count, used] : {std::pair{400, 400}, {0, 0}, {401, 400}, {-1, 0}}) {
    Bytes file = FileBytes(DataPath("terrain.pmp"));
    std::memcpy(&file[48000], &count, 2);
    dialogs.messages.clear();
    EXPECT_EQ(LoadBytes(file), LoadOutcome::kLoaded);
    EXPECT_EQ(document.lastPolygon, used - 1);
    EXPECT_EQ(document.lastSpawn, 13) << "loading goes on";
    const std::string damage = " is damaged: it names " + std::to_string(count) + " polygons, " +
                               std::to_string(used) + " are used.";
    EXPECT_EQ(dialogs.messages,
              std::vector(count == used ? 0U : 1U,
                          FileError("File '" + document.fileName + "'" + damage)));
  }
}

TEST_F(MapFileTest, EveryFileHasWholeWaypointsAndItsNumberAndNoLastScenery) {
  for (const bool isUndo : {false, true}) {
    for (const auto& [memory, file] : {std::pair{2688, 10}, {2944, 12}, {-2944, -12}}) {
      document.lastWaypoint = -1;
      Waypoint& waypoint = AddWaypoint(document, 0, 0, 1);
      waypoint.x = waypoint.y = memory;
      const Bytes bytes = Saved("saved.pmp", isUndo);
      EXPECT_TRUE(Peek(bytes, 444072) == file && Peek(bytes, 444076) == file) << memory;
      EXPECT_TRUE(waypoint.x == file * 256 && waypoint.y == file * 256);
    }
    for (const auto& [drawn, id] : {std::pair{0.0, 1}, {0.0009999, 1}, {0.9999, 1000}}) {
      nextRandom = drawn;
      EXPECT_EQ(Peek(Saved("saved.pmp", isUndo), 444060), id);
    }
    document.lastScenery = -1;
    for (int i = 0; i < kSceneryCapacity; ++i) AddScenery(document, 1, 1, 1);
    selection.sceneries.Clear();
    selection.sceneries.Add(254);
    UpdateSelectionBox(selection, document);
    Saved("saved.pmp", isUndo);
    EXPECT_EQ(document.lastScenery, 253);
    EXPECT_TRUE(selection.Empty() && selection.box == SelectionBox{});
  }
}

TEST_F(MapFileTest, SelectedCornersStayInTheirPlaces) {
  for (int i = 0; i < 3; ++i) AddTriangle(document, {{{0, 0}, {10, 0}, {0, 10}}});  // turned
  AddTriangle(document, {{{0, 0}, {0, 10}, {10, 0}}});
  using Corner = VertexReference;
  for (const Corner vertex : {Corner{0, 0}, {0, 2}, {1, 1}, {2, 0}, {2, 1}, {3, 0}}) {
    selection.vertices.Add(vertex);
  }
  Saved();
  const std::vector<Corner> after = {{0, 1}, {0, 2}, {1, 0}, {2, 0}, {2, 1}, {3, 0}};
  EXPECT_TRUE(std::ranges::equal(selection.vertices.Items(), after));
}

TEST_F(MapFileTest, TheFirstInactiveSlotEndsATable) {
  // Of spawns, sceneries, waypoints and colliders; two have a single byte.
  for (const auto& [active, lasts] :
       {std::pair{0, "0000"}, {1, "1111"}, {-1, "1000"}, {257, "1101"}}) {
    document.spawns[0].active = document.waypoints[0].active = 1;
    document.sceneries[0].active = document.colliders[0].active = 1;
    document.spawns[1].active = document.waypoints[1].active = active;
    document.sceneries[1].active = document.colliders[1].active = static_cast<std::uint8_t>(active);
    std::string found;
    for (auto* find : {FindLastSpawn, FindLastScenery, FindLastWaypoint, FindLastCollider}) {
      found += std::to_string(find(document));
    }
    EXPECT_EQ(found, lasts) << active;
  }
}

TEST_F(MapFileTest, NewKeepsWhatItDoesNotSet) {
  Bytes file(kMapFileSize);
  for (std::size_t i = 0; i < file.size(); ++i) file[i] = static_cast<std::byte>(i % 251 + 1);
  EXPECT_EQ(ReadMapImage(file, document, nullptr).divisionPosition, 434868U);
  EXPECT_EQ(static_cast<std::byte>(document.backgroundColor1.blue), file[434872]);
  document.lastSpawn = document.lastScenery = document.lastWaypoint = document.lastCollider = 7;
  document.fileName = "/maps/old.pmp";
  document.toolIndex = ToolMode::kAddSpawn;
  ResetToNewMap(document);
  Bytes expected(kMapFileSize);
  // Loose bytes 1 and 2; block, sector grid, loose bytes 4 and 5; the number, new at every save.
  for (const auto& [offset, size] : {std::pair{48002, 2}, {48511, 386357}, {444060, 4}}) {
    std::copy_n(file.begin() + offset, size, expected.begin() + offset);
  }
  std::memcpy(&expected[48004], "\nbanana.bmp", 11);
  expected[434868] = std::byte{30};
  std::memset(&expected[434872], 255, 8);
  EXPECT_EQ(StateOf(document), DocumentState(expected, {-1, -1, -1, -1, -1}, "", "New", 0));
}

TEST_F(MapFileTest, TextsAreCutToTheirFields) {
  EXPECT_EQ(MakeTextureName("ABCDEFGHIJKLMNOPQRSTUVWXYZ too long").back(), 'Z');
  const std::string longest(128, 'x');
  using Row = std::pair<std::string, std::string>;
  for (const auto& [author, stored] :
       {Row(" A\xE4 b ", " A\xE4 b "), Row(longest + "yy", longest), Row("   ", "Unknow")}) {
    for (Collider& collider : document.colliders) collider.authorChar = 'z';
    document.author = author;
    StoreAuthor(document);
    // One zero ends the name; what stood behind it stays.
    const std::string expected = stored + '\0' + std::string(128, 'z');
    for (std::size_t i = 0; i < 128; ++i)
      EXPECT_EQ(document.colliders[i].authorChar, static_cast<std::uint8_t>(expected[i])) << i;
    EXPECT_EQ(ReadAuthor(document), stored.substr(0, 21));
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
    const auto take = [](const auto& from, auto& table, std::int16_t& last) {
      std::ranges::copy(from, table.begin());
      last = static_cast<std::int16_t>(from.size() - 1);
    };
    take(prefab->polygons, map->polygons, map->lastPolygon);
    take(prefab->normals, map->normals, map->lastPolygon);
    take(prefab->sceneries, map->sceneries, map->lastScenery);
    take(prefab->colliders, map->colliders, map->lastCollider);
    map->author = header.author;
    EXPECT_EQ(WritePrefab(*map), whole) << name;
    map->author = "12345678901234567890+";
    EXPECT_EQ(ReadPrefabHeader(WritePrefab(*map)).author, "12345678901234567890");
    for (std::size_t size = 0; size < whole.size(); ++size) {
      EXPECT_FALSE(ReadPrefab(std::span(whole).first(size))) << "cut at " << size;
      EXPECT_EQ(ReadPrefabHeader(std::span(whole).first(size)).isKnownVersion, size >= 29);
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
