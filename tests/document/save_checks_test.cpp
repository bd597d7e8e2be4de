#include "document/save_checks.h"

#include <gmock/gmock.h>

#include <tuple>

#include "document/map_image.h"
#include "support/map_builder.h"
#include "support/map_workbench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Message kPolygonWarning = {
    "Your map was saved succesful but with this warning.\n\n"
    "There is polygon(s) wich have two vertices exactly same position.\n"
    "All those vertices are now selected and after this message\n"
    "you should click Disconnect button and fix those vertices.",
    "Polygon warning", MessageIcon::kNone};
const Message kNotDeathmatch = {
    "Your map was saved succesful but with this warning.\n\n"
    "First spawpoint is NOT deathmatch spawpoint\n"
    "and you have been save your map without ctf specified name.\n"
    "Every Capture The Flag map requires ctf_ in start of the filename.",
    "Spawn warning", MessageIcon::kExclamation};
const Message kNotRedBlue = {
    "Your map was saved succesful but with this warning.\n\n"
    "Every Capture The Flag map requires that\n"
    "first spawpoint is red flag and second spawpoint is blue flag.",
    "Spawn warning", MessageIcon::kExclamation};

class SaveChecksTest : public testing::Test {
 protected:
  MapWorkbench bench_;
  MapDocument& document_ = bench_.document;
  Selection& selection_ = bench_.selection;
};

TEST_F(SaveChecksTest, ListsTheCornersOfEveryPairOnOneSpot) {
  AddTriangle(document_, {{{0, 0}, {0, 9}, {9, 0}}});
  AddTriangle(document_, {{{5, 5}, {5, 5}, {9, 0}}});
  AddTriangle(document_, {{{0, 0}, {7, 7}, {7, 7}}});
  AddTriangle(document_, {{{1, 1}, {8, 8}, {1, 1}}});  // this pair is never compared
  AddTriangle(document_, {{{2, 2}, {2, 2}, {2, 2}}});  // each corner once
  AddTriangle(document_, {{{0, 0}, {0, 1e-30f}, {9, 0}}});
  selection_.vertices.Add({0, 2});
  selection_.spawns.Add(0);
  selection_.moveSnapshotTaken = true;
  CheckDuplicateVertices(document_, selection_, bench_.display, bench_.dialogs);

  using Reference = VertexReference;
  EXPECT_THAT(selection_.vertices.Items(),
              ElementsAre(Reference{1, 0}, Reference{1, 1}, Reference{2, 1}, Reference{2, 2},
                          Reference{4, 0}, Reference{4, 1}, Reference{4, 2}));
  EXPECT_EQ(selection_.TotalCounter(), 6);
  EXPECT_FALSE(selection_.moveSnapshotTaken);
  EXPECT_EQ(selection_.box, (SelectionBox{2, 7, 2, 7}));
  EXPECT_THAT(bench_.events,
              ElementsAre("SetPointer 0", "RedrawMap", "RefreshInfoPanel", "Show Polygon warning"));
  EXPECT_THAT(bench_.dialogs.messages, ElementsAre(kPolygonWarning));
}

TEST_F(SaveChecksTest, NoneAndAllPolygonsDamaged) {
  AddTriangle(document_, {{{1, 1}, {8, 8}, {1, 1}}});
  selection_.vertices.Add({0, 2});
  CheckDuplicateVertices(document_, selection_, bench_.display, bench_.dialogs);
  EXPECT_EQ(selection_.vertices.Count(), 1) << "sound polygons keep the selection";
  EXPECT_THAT(bench_.events, IsEmpty());

  document_.lastPolygon = -1;
  for (int i = 0; i < kPolygonCapacity; ++i) AddTriangle(document_, {{{1, 1}, {1, 1}, {1, 1}}});
  CheckDuplicateVertices(document_, selection_, bench_.display, bench_.dialogs);
  EXPECT_EQ(selection_.vertices.Count(), 1200);
  EXPECT_EQ(selection_.vertices.Items().back(), (VertexReference{399, 2}));
}

TEST_F(SaveChecksTest, SpawnsMustFitTheNameOfTheMap) {
  using Row = std::tuple<const char*, std::string, const Message*>;  // path, teams, warning
  for (const auto& [path, teams, warning] :
       {Row("/maps/ctf_a.pmp", "120", nullptr), Row("/maps/CTF_a.pmp", "21", &kNotRedBlue),
        Row("cTf_a.pmp", "11", &kNotRedBlue), Row("C:\\Soldat\\Ctf_a.pmp", "02", &kNotRedBlue),
        Row("/maps/ctf_a.pmp", "0", nullptr), Row("/maps/ctf_a.pmp", "", nullptr),
        Row("/maps/a.pmp", "", nullptr), Row("/maps/a.pmp", "01", nullptr),
        Row("/maps/a.pmp", "1", &kNotDeathmatch), Row("/maps/ctf", "12", &kNotDeathmatch),
        Row("/ctf_maps/a.pmp", "20", &kNotDeathmatch),
        Row("/ctf_maps\\a_ctf_.pmp", "3", &kNotDeathmatch)}) {
    document_.lastSpawn = -1;
    document_.spawns[0].team = 1;  // left over, but not in use
    for (const char team : teams) AddSpawn(document_, 0, 0, static_cast<std::uint8_t>(team - '0'));
    bench_.dialogs.messages.clear();
    CheckCtfSpawns(document_, path, bench_.dialogs);
    EXPECT_EQ(bench_.dialogs.messages,
              warning != nullptr ? std::vector{*warning} : std::vector<Message>{})
        << path;
  }
}

TEST_F(SaveChecksTest, SavingWarnsAfterTheFileIsWhole) {
  // The winding fix brings the equal corners 0 and 2 to 1 and 2.
  AddTriangle(document_, {{{0, 0}, {5, 0}, {0, 0}}});
  AddSpawn(document_, 0, 0, 1);
  std::vector<Bytes> files;
  bench_.dialogs.onShow = [&](const Message&) {
    files.push_back(FileBytes(bench_.folder / "saved.pmp"));
  };
  const Bytes saved = bench_.Saved();
  ASSERT_EQ(saved.size(), kMapFileSize);
  EXPECT_EQ(files, (std::vector{saved, saved}));
  EXPECT_THAT(bench_.events, ElementsAre("SetPointer 0", "RedrawMap", "RefreshInfoPanel",
                                         "Show Polygon warning", "Show Spawn warning"));

  bench_.events.clear();
  bench_.Snapshot();
  EXPECT_THAT(bench_.events, IsEmpty());
}

}  // namespace
}  // namespace vesmora
