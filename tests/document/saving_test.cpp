// What a save does to the map before it is written, and the warnings after it.
#include <gmock/gmock.h>

#include <cmath>
#include <tuple>

#include "document/geometry.h"
#include "document/save_checks.h"
#include "document/save_preparation.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::IsEmpty;

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
