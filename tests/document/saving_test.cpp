// What a save does to the map before it is written, and the warnings after it.
#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "document/geometry.h"
#include "document/save_checks.h"
#include "document/save_preparation.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::IsEmpty;

constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();

const std::string kSaved = "Your map was saved succesful but with this warning.\n\n";
const Message kPolygonWarning = {
    kSaved +
        "There is polygon(s) wich have two vertices exactly same position.\n"
        "All those vertices are now selected and after this message\n"
        "you should click Disconnect button and fix those vertices.",
    "Polygon warning", MessageIcon::kNone};
const Message kNotDeathmatch = {
    kSaved +
        "First spawpoint is NOT deathmatch spawpoint\n"
        "and you have been save your map without ctf specified name.\n"
        "Every Capture The Flag map requires ctf_ in start of the filename.",
    "Spawn warning", MessageIcon::kExclamation};
const Message kNotRedBlue = {kSaved +
                                 "Every Capture The Flag map requires that\n"
                                 "first spawpoint is red flag and second spawpoint is blue flag.",
                             "Spawn warning", MessageIcon::kExclamation};

class SavingTest : public testing::Test, protected Bench {};

TEST_F(SavingTest, OrderFollowsTheAnglesFromTheFirstCorner) {
  using Row = std::tuple<float, float, float, float, bool>;
  for (const auto& [x1, y1, x2, y2, ordered] :
       {Row(10, 0, 0, 10, false), Row(0, 10, 10, 0, true),
        // Across the cut where the angle jumps from pi to -pi.
        Row(-10, 1, -10, -1, false), Row(-10, -1, -10, 1, true),
        // No area: all on one spot or on one line, exactly at the borders.
        Row(0, 0, 0, 0, true), Row(20, 0, 10, 0, false), Row(10, 0, -10, 0, false)}) {
    map.polygons.last = -1;
    AddTriangle(map, {{{0, 0}, {x1, y1}, {x2, y2}}});
    EXPECT_EQ(PolygonIsOrdered(map.polygons[0]), ordered)
        << x1 << "," << y1 << " " << x2 << "," << y2;
  }
}

TEST_F(SavingTest, WindingFixSwapsOnlyWhatBelongsToThePlace) {
  const PolygonVertex third = {0, 10, 23, 24, {25, 26, 27, 28}, 29, 30};
  map.polygons[0].vertices = {
      {{0, 0, 3, 4, {5, 6, 7, 8}, 9, 10}, {10, 0, 13, 14, {15, 16, 17, 18}, 19, 20}, third}};
  map.polygons.last = 0;  // passable: turned all the same
  KorjaaSuunnat(map);
  const PolygonVertex one = {10, 0, 3, 4, {15, 16, 17, 8}, 19, 20};
  const PolygonVertex two = {0, 0, 13, 14, {5, 6, 7, 18}, 9, 10};
  EXPECT_EQ(map.polygons[0].vertices, (std::array{one, two, third}));
}

TEST_F(SavingTest, NormalsAreNewAndNeverZeroUnlessNoneHasAnY) {
  using Edges = std::array<Normal, 3>;
  const Edges passable = {{{1, 0, 5}, {0, -0.0f, 6}, {0, 0, 7}}};
  for (int i = 0; i < 2; ++i) AddTriangle(map, {{{0, 0}, {10, 0}, {0, 10}}});
  map.polygons[0].edges = passable;
  map.polygons[1].edges = {{{0, 0, 5}, {7, 0, 6}, {0, 1e-30f, 7}}};
  PrepareForSave(map, selection);
  EXPECT_EQ(map.polygons[0].edges, passable);
  const float diagonal = std::sqrt(0.5f);
  EXPECT_EQ(map.polygons[1].edges,
            (Edges{{{1e-15f, -1, 5}, {-1, -1e-15f, 6}, {diagonal, diagonal, 7}}}));
  const WorldPoint tiny = EdgeNormal(0, -1e-45f);
  EXPECT_TRUE(tiny.x != 0 && tiny.y == -1);
}

TEST_F(SavingTest, SpawnsSnapToWholeUnitsAndStayThere) {
  using Row = std::tuple<std::int32_t, std::int32_t, std::int32_t, std::int32_t, int>;
  for (const auto& [x, y, snappedX, snappedY, ySign] :
       {Row(76800, 25600, 76800, 25600, 0), Row(-76800, 0, -76800, -1, 255),
        Row(-77, 25700, 0, 25600, 0),  // x counts as it is after rounding
        Row(128, 384, 0, 512, 0), Row(-384, 127, -512, -1, 255), Row(-384, 128, -512, 255, 0),
        Row(0, -129, 0, -256, 255), Row(kMax, kMax, kMax, kMax, 0),
        Row(kMin, kMin, kMin, kMin, 255)}) {
    map.spawns[0] = {256, x, y, 77, 2, {8, 9}};
    map.spawns.last = 0;
    for (int times = 0; times < 2; ++times) SnapSpawns(map);
    const auto sign = static_cast<std::uint8_t>(ySign);
    EXPECT_EQ(map.spawns[0], (SpawnPoint{256, snappedX, snappedY, sign, 2, {8, 9}}))
        << x << "," << y << " became " << map.spawns[0].x << "," << map.spawns[0].y;
  }
}

TEST_F(SavingTest, CornersOnOneSpotAreSelectedAndTold) {
  AddTriangle(map, {{{0, 0}, {0, 1e-30f}, {9, 0}}});
  AddTriangle(map, {{{1, 1}, {8, 8}, {1, 1}}});  // this pair is never compared
  selection.vertices.Append({0, 2});
  EXPECT_FALSE(CheckDuplicateVertices(map, selection));
  EXPECT_EQ(selection.vertices.Count(), 1) << "sound polygons keep the selection";
  TellSaveFindings(editor, {});
  EXPECT_THAT(events, IsEmpty());
  AddTriangle(map, {{{5, 5}, {5, 5}, {9, 0}}});
  AddTriangle(map, {{{0, 0}, {7, 7}, {7, 7}}});
  AddTriangle(map, {{{2, 2}, {2, 2}, {2, 2}}});  // each corner once
  EXPECT_TRUE(CheckDuplicateVertices(map, selection));
  using Corner = VertexReference;
  EXPECT_THAT(selection.vertices.Used(),
              ElementsAre(Corner{2, 0}, Corner{2, 1}, Corner{3, 1}, Corner{3, 2}, Corner{4, 0},
                          Corner{4, 1}, Corner{4, 2}));
  EXPECT_EQ(selection.box, (SelectionBox{2, 7, 2, 7}));
  TellSaveFindings(editor, {.duplicateVertices = true});
  EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap", "Show Polygon warning"));
  EXPECT_THAT(dialogs.messages, ElementsAre(kPolygonWarning));
}

TEST_F(SavingTest, SpawnsMustFitTheNameOfTheMap) {
  const std::vector<Message> none;
  using Row = std::tuple<const char*, std::string, std::vector<Message>>;  // path, teams, warnings
  for (const auto& [path, teams, warnings] :
       {Row("/maps/CTF_a.pmp", "120", none), Row("cTf_a.pmp", "11", {kNotRedBlue}),
        Row("C:\\Soldat\\Ctf_a.pmp", "02", {kNotRedBlue}), Row("/maps/ctf_a.pmp", "0", none),
        Row("/maps/a.pmp", "", none), Row("/maps/a.pmp", "01", none),
        Row("/maps/ctf", "12", {kNotDeathmatch}), Row("/ctf_m\\a_ctf_", "3", {kNotDeathmatch})}) {
    map.spawns.last = -1;
    map.spawns[0].team = 1;  // left over, but not in use
    for (const char team : teams) AddSpawn(map, 0, 0, static_cast<std::uint8_t>(team - '0'));
    TellSaveFindings(editor, {.spawns = CheckCtfSpawns(map, path)});
    EXPECT_EQ(TakeMessages(), warnings) << path;
  }
}

}  // namespace
}  // namespace vesmora
