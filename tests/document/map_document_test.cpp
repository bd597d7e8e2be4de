#include "document/map_document.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <tuple>

#include "document/map_image.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

Bytes RandomBytes(std::size_t size) {
  std::mt19937 random(3);
  Bytes bytes(size);
  for (std::byte& byte : bytes) byte = static_cast<std::byte>(random() | 1U);  // never zero
  return bytes;
}

template <typename Value>
void Poke(Bytes& bytes, std::size_t offset, Value value) {
  std::memcpy(&bytes.at(offset + sizeof(value) - 1) - (sizeof(value) - 1), &value, sizeof(value));
}

class MapDocumentTest : public testing::Test {
 protected:
  const std::unique_ptr<MapDocument> holder_ = std::make_unique<MapDocument>();
  MapDocument& document_ = *holder_;
};

TEST_F(MapDocumentTest, ItemsLieAtTheirOffsets) {
  Bytes file = RandomBytes(kMapFileSize);
  Poke<std::int16_t>(file, 48000, 258);
  const ImageReading reading = ReadMapImage(file, document_, nullptr);
  EXPECT_EQ(reading.polygonCount, 258);
  EXPECT_EQ(reading.divisionPosition, 434868U);

  using Field = std::tuple<std::size_t, const void*, std::size_t>;
  const auto& d = document_;
  for (const auto& [offset, item, size] :
       {Field(0, &d.polygons[0].vertices[0].x, 4),
        Field(46, &d.polygons[0].vertices[1].color.red, 1),
        Field(33596, &d.polygons[399].vertices[2].v, 4),
        Field(33652, &d.normals[1].edges[1].y, 4),
        Field(48002, &d.looseByte1, 1),
        Field(48003, &d.looseByte2, 1),
        Field(48004, &d.looseByte3, 1),
        Field(48005, &d.texture, 26),
        Field(48031 + 29 * 16 + 13, &d.spawns[29].team, 1),
        Field(48511, &d.block, 33),
        Field(48544 + 65 * 402, &d.sectors[65].polygons, 400),
        Field(434864, &d.sectors[960].count, 2),
        Field(434866, &d.looseByte4, 1),
        Field(434867, &d.looseByte5, 1),
        Field(434868, &d.sectorDivision, 4),
        Field(434872, &d.backgroundColor1, 4),
        Field(434876, &d.backgroundColor2.blue, 1),
        Field(434880 + 254 * 36 + 32, &d.sceneries[254].level, 1),
        Field(444060, &d.randomId, 4),
        Field(444064 + 128, &d.waypoints[1].botSettings, 5),
        Field(500060, &d.waypoints[499].connections[19], 4),
        Field(500064 + 19, &d.colliders[1].authorChar, 1),
        Field(502108, &d.colliders[127].radius, 4)}) {
    EXPECT_EQ(std::memcmp(file.data() + offset, item, size), 0) << "offset " << offset;
  }
  document_.lastPolygon = 257;
  EXPECT_EQ(ImageOf(document_), file);
}

TEST_F(MapDocumentTest, TheFirstInactiveSlotEndsATable) {
  using Row = std::tuple<std::int32_t, bool, bool, bool, bool>;
  for (const auto& [active, spawn, scenery, waypoint, collider] :
       {Row(0, false, false, false, false), Row(1, true, true, true, true),
        Row(2, true, false, false, false), Row(-1, true, false, false, false),
        Row(256, true, false, false, false), Row(257, true, true, false, true)}) {
    // Sceneries and colliders have a single byte.
    const auto byte = static_cast<std::uint8_t>(active);
    for (const std::size_t slot : {0U, 1U, 2U, 3U}) {
      const bool isProbe = slot == 1;
      document_.spawns[slot].active = isProbe ? active : 1;
      document_.sceneries[slot].active = isProbe ? byte : 1;
      document_.waypoints[slot].active = isProbe ? active : 1;
      document_.colliders[slot].active = isProbe ? byte : 1;
    }
    EXPECT_EQ(FindLastSpawn(document_), spawn ? 3 : 0) << active;
    EXPECT_EQ(FindLastScenery(document_), scenery ? 3 : 0) << active;
    EXPECT_EQ(FindLastWaypoint(document_), waypoint ? 3 : 0) << active;
    EXPECT_EQ(FindLastCollider(document_), collider ? 3 : 0) << active;
  }
}

TEST_F(MapDocumentTest, EmptyAndFullTables) {
  const auto lasts = [this] {
    return std::array{FindLastSpawn(document_), FindLastScenery(document_),
                      FindLastWaypoint(document_), FindLastCollider(document_)};
  };
  for (auto& slot : document_.spawns) slot.active = 1;
  for (auto& slot : document_.sceneries) slot.active = 1;
  for (auto& slot : document_.waypoints) slot.active = 1;
  for (auto& slot : document_.colliders) slot.active = 1;
  EXPECT_THAT(lasts(), ElementsAre(29, 254, 499, 127));
  document_.spawns[0].active = 0;
  document_.sceneries[0].active = 0;
  document_.waypoints[0].active = 0;
  document_.colliders[0].active = 0;
  EXPECT_THAT(lasts(), ElementsAre(-1, -1, -1, -1));
}

TEST_F(MapDocumentTest, NewKeepsWhatItDoesNotSet) {
  const Bytes before = RandomBytes(kMapFileSize);
  ReadMapImage(before, document_, nullptr);
  document_.lastPolygon = document_.lastSpawn = document_.lastScenery = 7;
  document_.lastWaypoint = document_.lastCollider = 7;
  document_.fileName = "/maps/old.pmp";
  document_.author = "Old";
  document_.toolIndex = ToolMode::kAddSpawn;
  ResetToNewMap(document_);

  Bytes expected(kMapFileSize);
  const auto keep = [&](std::size_t offset, std::size_t size) {
    std::memcpy(expected.data() + offset, before.data() + offset, size);
  };
  keep(48002, 2);       // loose bytes 1 and 2
  keep(48511, 386357);  // block, sector grid, loose bytes 4 and 5
  keep(444060, 4);      // the number is drawn anew at every save
  expected[48004] = std::byte{10};
  std::memcpy(expected.data() + 48005, "banana.bmp", 10);
  Poke<std::int32_t>(expected, 434868, 30);
  std::memset(expected.data() + 434872, 255, 8);
  EXPECT_EQ(StateOf(document_), DocumentState(expected, {-1, -1, -1, -1, -1}, "", "New", 0));
}

TEST_F(MapDocumentTest, AuthorTravelsInTheColliders) {
  const auto repeated = [](std::size_t count) { return std::string(count, 'x'); };
  using Row = std::tuple<std::string, std::string, std::string>;
  for (const auto& [author, stored, readBack] :
       {Row("Ann", "Ann", "Ann"), Row("", "Unknow", "Unknow"), Row(" A b ", " A b ", " A b "),
        Row("\xE4\xF6\x80\xFF", "\xE4\xF6\x80\xFF", "\xE4\xF6\x80\xFF"),
        Row(repeated(25), repeated(25), repeated(21)),
        Row(repeated(128), repeated(128), repeated(21)),
        Row(repeated(130), repeated(128), repeated(21)), Row("   ", "Unknow", "Unknow")}) {
    for (Collider& collider : document_.colliders) collider.authorChar = 'z';
    document_.author = author;
    StoreAuthor(document_);
    // One zero ends the name; what stood behind it stays.
    std::string expected = stored;
    if (expected.size() < 128) expected += '\0';
    expected.resize(128, 'z');
    std::string slots;
    for (const Collider& collider : document_.colliders) {
      slots += static_cast<char>(collider.authorChar);
    }
    EXPECT_EQ(slots, expected);
    EXPECT_EQ(ReadAuthor(document_), readBack);
  }
  EXPECT_EQ(document_.author, "Unknow") << "a blank one is replaced in memory, too";
}

}  // namespace
}  // namespace vesmora
