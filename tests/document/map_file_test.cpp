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
