// The files that ship with the program: what a map and an author's name can rely on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "document/prefab_file.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

using testing::AllOf, testing::Contains, testing::Each, testing::Field, testing::Ge, testing::Gt,
    testing::Le, testing::ResultOf;

constexpr std::size_t kLongestAuthor = 19;

double Area(const Polygon& polygon) {
  const auto& [a, b, c] = polygon.vertices;
  return std::abs((b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y)) / 2;
}

/// The prefabs of a folder by file name, each whole, with nothing but sound records in it.
std::map<std::string, Prefab> LoadAll(const std::string& folder) {
  std::map<std::string, Prefab> prefabs;
  for (const std::string& file : ListFiles(SystemFileCalls(), folder).names) {
    SCOPED_TRACE(file);
    const Bytes bytes = FileBytes(folder + file);
    const Prefab prefab = ReadPrefab(bytes).value_or(Prefab{});
    EXPECT_EQ(ReadPrefabHeader(bytes).author, "Vesmora");
    EXPECT_EQ(bytes.size(), 29 + 120 * prefab.polygons.size() + 36 * prefab.sceneries.size() +
                                16 * prefab.colliders.size());
    EXPECT_THAT(prefab.polygons, Each(ResultOf(Area, Gt(0.05))));
    EXPECT_THAT(prefab.sceneries, Each(Field(&SceneryObject::active, 1)));
    EXPECT_THAT(prefab.sceneries, Each(Field(&SceneryObject::width, Gt(0))));
    EXPECT_THAT(prefab.colliders, Each(Field(&Collider::active, 1)));
    prefabs[file] = prefab;
  }
  return prefabs;
}

TEST(DataTest, AnyAuthorFitsIntoAMapAndStandsOnOneLine) {
  const auto letters = LoadAll(DataPath("../../data/Alphabet/"));
  const std::string needed = "abcdefghijklmnopqrstuvwxyz0123456789!\"#%&'()*+,-./:;<=>?@[]_";
  for (const char letter : needed + "\344\366\345") {
    const int code = static_cast<unsigned char>(letter);
    EXPECT_TRUE(letters.contains(std::to_string(code) + ".pre")) << code;
  }
  for (const auto& [file, letter] : letters) {
    EXPECT_LE(letter.polygons.size() * kLongestAuthor, kPolygonCapacity) << file;
    std::vector<float> heights;
    for (const Polygon& polygon : letter.polygons) {
      for (const PolygonVertex& corner : polygon.vertices) heights.push_back(corner.y);
    }
    EXPECT_THAT(heights, AllOf(Contains(0.0f), Contains(24.0f), Each(AllOf(Ge(0), Le(24)))))
        << file;
  }
}

TEST(DataTest, ThereAreSoundPrefabs) {
  EXPECT_GE(LoadAll(DataPath("../../data/Prefab/")).size(), 10U);
}

}  // namespace
}  // namespace vesmora
