#include "document/prefab_file.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/map_workbench.h"

namespace vesmora {
namespace {

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
