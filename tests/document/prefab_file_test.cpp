#include "document/prefab_file.h"

#include <gmock/gmock.h>

#include <cstring>

#include "support/map_builder.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

std::string Text(const Bytes& bytes, std::size_t from, std::size_t size) {
  return {reinterpret_cast<const char*>(bytes.data()) + from, size};
}

template <typename Record>
bool HoldsAt(const Bytes& bytes, std::size_t from, const Record& record) {
  return std::memcmp(bytes.data() + from, &record, sizeof(record)) == 0;
}

TEST(PrefabFileTest, RecordsFollowTheHeaderWithoutGaps) {
  const auto map = std::make_unique<MapDocument>();
  for (const float x : {1.0f, 2.0f}) {
    AddTriangle(*map, {{{x, 5}, {x, 6}, {7, x}}});
    AddCollider(*map, x, 9, 3).authorChar = 'V';
  }
  map->normals[1].edges[2] = {8, 8, 8};
  AddScenery(*map, 4, 5, 6).carriedTail = {1, 2, 3};
  AddSpawn(*map, 1, 1, 1);
  AddWaypoint(*map, 1, 1, 1);
  map->author = "Me";
  const Bytes bytes = WritePrefab(*map);
  ASSERT_EQ(bytes.size(), 29u + 2 * 120 + 36 + 2 * 16);
  EXPECT_EQ(Text(bytes, 0, 9), std::string("1.0\1\0\0\0\1\0", 9));
  EXPECT_EQ(Text(bytes, 9, 20), "Me                  ");
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_TRUE(HoldsAt(bytes, 29 + 120 * i, map->polygons[i]));
    EXPECT_TRUE(HoldsAt(bytes, 29 + 120 * i + 84, map->normals[i])) << "as they are in memory";
    EXPECT_TRUE(HoldsAt(bytes, 29 + 240 + 36 + 16 * i, map->colliders[i]));
  }
  EXPECT_TRUE(HoldsAt(bytes, 29 + 240, map->sceneries[0]));

  // Cut anywhere it is refused; what follows the last record does not matter.
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto cut = std::span(bytes).first(size);
    EXPECT_FALSE(ReadPrefab(cut)) << size;
    EXPECT_EQ(ReadPrefabHeader(cut).isKnownVersion, size >= 29);
  }
  Bytes longer = bytes;
  longer.resize(longer.size() + 5);
  const std::optional<Prefab> prefab = ReadPrefab(longer);
  ASSERT_TRUE(prefab);
  EXPECT_EQ(prefab->polygons[1], map->polygons[1]);
  EXPECT_EQ(prefab->normals[1], map->normals[1]);
  EXPECT_EQ(prefab->sceneries[0], map->sceneries[0]);
  EXPECT_EQ(prefab->colliders[1], map->colliders[1]);
}

TEST(PrefabFileTest, TheAuthorHasTwentyCharacters) {
  for (const auto& [author, stored, read] :
       {std::tuple<std::string, std::string, std::string>("", std::string(20, ' '), ""),
        {"a b", "a b                 ", "a b"},
        {"12345678901234567890", "12345678901234567890", "12345678901234567890"},
        {"123456789012345678901", "12345678901234567890", "12345678901234567890"},
        {"\xC4\xE4", "\xC4\xE4                  ", "\xC4\xE4"}}) {
    const auto map = std::make_unique<MapDocument>();
    map->author = author;
    const Bytes bytes = WritePrefab(*map);
    EXPECT_EQ(bytes.size(), 29u);
    EXPECT_EQ(Text(bytes, 3, 6), "\xFF\xFF\xFF\xFF\xFF\xFF") << "nothing of any kind";
    EXPECT_EQ(Text(bytes, 9, 20), stored);
    EXPECT_EQ(ReadPrefabHeader(bytes).author, read);
    EXPECT_TRUE(ReadPrefab(bytes));
  }
}

TEST(PrefabFileTest, SoundPrefabsOfOthersAreReadWhole) {
  for (const auto& [name, polygons] : {std::pair("bunker.pre", 12), {"large.pre", 60}}) {
    const Bytes bytes = FileBytes(DataPath(name));
    const PrefabHeader header = ReadPrefabHeader(bytes);
    EXPECT_TRUE(header.isKnownVersion);
    EXPECT_EQ(header.polygonCount, polygons) << name;
    const std::optional<Prefab> prefab = ReadPrefab(bytes);
    ASSERT_TRUE(prefab) << name;
    const auto map = std::make_unique<MapDocument>();
    map->author = header.author;
    std::ranges::copy(prefab->polygons, map->polygons.begin());
    std::ranges::copy(prefab->normals, map->normals.begin());
    std::ranges::copy(prefab->sceneries, map->sceneries.begin());
    std::ranges::copy(prefab->colliders, map->colliders.begin());
    map->lastPolygon = static_cast<std::int16_t>(prefab->polygons.size() - 1);
    map->lastScenery = static_cast<std::int16_t>(prefab->sceneries.size() - 1);
    map->lastCollider = static_cast<std::int16_t>(prefab->colliders.size() - 1);
    EXPECT_EQ(WritePrefab(*map), bytes) << name;
  }
}

TEST(PrefabFileTest, ImpossibleOnesAreRefused) {
  struct Row {
    const char* name;
    bool isKnownVersion;
    bool isWhole;
  };
  for (const Row& row :
       {Row{"prefab-polygons_0.pre", true, false}, Row{"prefab-polygons_3.pre", true, false},
        Row{"prefab-truncated_1.pre", false, false}, Row{"prefab-truncated_5.pre", true, false},
        Row{"prefab-version_0.pre", false, true}}) {
    const Bytes bytes = FileBytes(DataPath(std::string("hostile/") + row.name));
    EXPECT_EQ(ReadPrefabHeader(bytes).isKnownVersion, row.isKnownVersion) << row.name;
    EXPECT_EQ(ReadPrefab(bytes).has_value(), row.isWhole) << row.name;
  }
  for (const std::size_t count : {3u, 5u, 7u}) {
    for (const auto& [low, high] : {std::pair(0xFE, 0xFF), {0x90, 0x01}, {0xFF, 0x7F}}) {
      Bytes bytes = WritePrefab(*std::make_unique<MapDocument>());
      bytes[count] = static_cast<std::byte>(low);
      bytes[count + 1] = static_cast<std::byte>(high);
      bytes.resize(1U << 20U);  // more than any count asks for in vain
      EXPECT_FALSE(ReadPrefab(bytes)) << low;
    }
  }
}

}  // namespace
}  // namespace vesmora
