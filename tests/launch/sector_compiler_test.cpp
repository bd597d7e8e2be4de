#include "launch/sector_compiler.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <sstream>

#include "app/file_commands.h"
#include "app/run_commands.h"
#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class SectorCompilerTest : public testing::Test {
 protected:
  const Sector& At(int column, int row) const {
    return bench_.editor.document.sectors.at(static_cast<std::size_t>(column * 31 + row));
  }
  /// Columns and rows of the sectors that hold a polygon, as "first-last,first-last", or "".
  std::string PlacesOf(std::int16_t number) const {
    std::array<int, 4> range = {99, -1, 99, -1};
    int found = 0;
    for (int c = 0; c < 31; ++c) {
      for (int r = 0; r < 31; ++r) {
        const Sector& sector = At(c, r);
        const auto used = sector.polygons.begin() + sector.count;
        if (std::find(sector.polygons.begin(), used, number) == used) continue;
        ++found;
        range = {std::min(range[0], c), std::max(range[1], c), std::min(range[2], r),
                 std::max(range[3], r)};
      }
    }
    if (found == 0) return "";
    EXPECT_EQ(found, (range[1] - range[0] + 1) * (range[3] - range[2] + 1)) << "no gaps";
    std::stringstream text;
    text << range[0] << "-" << range[1] << "," << range[2] << "-" << range[3];
    return text.str();
  }
  bool Compile() { return MenuRunCompile(bench_.editor); }

  EditorBench bench_;
  MapDocument& document_ = bench_.map;
};

/// What is computed may differ in the last bits; takes that over, to compare the rest.
void TakeOverWhatIsNear(MapDocument& wanted, const MapDocument& got) {
  const auto take = [](float& value, float other, float tolerance) {
    if (std::abs(value - other) <= tolerance) value = other;
  };
  constexpr float kFourUnits = 0x1p-22F;  // in the last place, at most
  for (int i = 0; i < kPolygonCapacity; ++i) {
    for (std::size_t k = 0; k < 3; ++k) {
      Normal& normal = wanted.polygons[i].edges[k];
      PolygonVertex& vertex = wanted.polygons[i].vertices[k];
      take(normal.x, got.polygons[i].edges[k].x, std::abs(normal.x) * kFourUnits);
      take(normal.y, got.polygons[i].edges[k].y, std::abs(normal.y) * kFourUnits);
      take(vertex.u, got.polygons[i].vertices[k].u, 4e-6F);
      take(vertex.v, got.polygons[i].vertices[k].v, 4e-6F);
    }
  }
  wanted.randomId = got.randomId;
}

TEST_F(SectorCompilerTest, ForeignMapsCompileToTheExpectedFiles) {
  for (const std::string name : {"terrain", "full", "small"}) {
    OpenMap(bench_.editor, bench_.PutMap(name + ".pmp", name + ".pmp"));
    ASSERT_TRUE(Compile()) << name;
    ASSERT_TRUE(MenuSave(bench_.editor)) << name;
    Bench got;
    Bench wanted;
    got.Load(bench_.folder / (name + ".pmp"));
    wanted.Load(DataPath(name + "_compiled.pmp"));
    TakeOverWhatIsNear(wanted.map, got.map);
    EXPECT_EQ(got.map.sectors, wanted.map.sectors) << name;
    EXPECT_EQ(ImageOf(got.map), ImageOf(wanted.map)) << name;
  }
}

TEST_F(SectorCompilerTest, TheDivisionIsAThirtiethRoundedToEven) {
  struct Row {
    float left, right, top, bottom;
    int division;  // 0: refused
    std::string places;
  };
  for (const Row& row : {Row{-600, 600, -100, 100, 40, "0-30,12-18"},  // 12.5 and 17.5 to even
                         Row{0, 1500, 0, 10, 50, "0-30,15-15"}, Row{0, 45, 0, 0, 2, "4-26,15-15"},
                         Row{7, 7, 0, 75, 2, "15-15,0-30"}, Row{0, 15, 0, 15, 0, ""},
                         Row{0.5f, 16.5f, 0, 0, 1, "7-23,15-15"},
                         // The search for the bounds starts at 9999.
                         Row{20000, 21000, 0, 0, 367, "27-30,15-15"},
                         Row{-32768, 32767, 0, 0, 2184, "0-30,15-15"}}) {
    MenuNew(bench_.editor);
    document_.sectors = {};
    AddTriangle(document_, {{{row.left, row.top}, {row.right, row.bottom}, {row.left, row.top}}});
    EXPECT_EQ(Compile(), row.division > 0);
    EXPECT_EQ(document_.sectorDivision, row.division > 0 ? row.division : 30);
    EXPECT_EQ(PlacesOf(1), row.places) << row.division;
  }
  AddTriangle(document_, {{{20000, 0}, {21000, 0}, {20000, 0}}});
  bench_.editor.activity.Begin(ActivityKind::kMove, bench_.editor);
  EXPECT_TRUE(Compile());
  EXPECT_EQ(PlacesOf(2), "24-25,15-15");
  EXPECT_TRUE(bench_.editor.activity.Is(ActivityKind::kNone)) << "a drag ends";
}

TEST_F(SectorCompilerTest, ARefusalChangesNothing) {
  AddSpawn(document_, 100, 100, 1);
  document_.sectors[7].count = 3;
  ChangeTool(bench_.editor, ToolMode::kAddWaypoint);
  for (const char* text :
       {"There are no polygons to compile.", "The map is too small to compile."}) {
    const auto before = StateOf(document_);
    EXPECT_FALSE(Compile());
    EXPECT_THAT(bench_.TakeMessages(),
                ElementsAre(Message{text, "Problem", MessageIcon::kCritical}));
    EXPECT_EQ(StateOf(document_), before);
    EXPECT_EQ(bench_.journal.undoAvailable, -1);
    AddTriangle(document_, {{{9, 9}, {24, 9}, {9, 24}}});
  }
  MenuNew(bench_.editor);
  ChangeTool(bench_.editor, ToolMode::kAddPolygon);
  bench_.Click(300, 300);
  EXPECT_FALSE(Compile()) << "half a triangle is no part of the map";
  EXPECT_EQ(document_.polygons.last, -1);
  EXPECT_TRUE(bench_.editor.activity.Is(ActivityKind::kNone))
      << "nothing that Escape could bring back";
}

TEST_F(SectorCompilerTest, AllThatLiesInTheMapMovesAndUndoBringsItBack) {
  AddTriangle(document_, {{{0, 0}, {301, 0}, {0, 600}}});
  AddTriangle(document_, {{{10, 10}, {20, 10}, {10, 20}}});
  document_.polygons[1].edges.fill({1, 0, 1});  // passable
  AddSpawn(document_, 302, 0, 0);               // on the edge of the enlarged box
  AddSpawn(document_, 303, 0, 0);               // beyond it
  AddScenery(document_, 5, 5, 1);
  AddCollider(document_, 5, 601, 10);
  for (const int path : {1, 2, 0}) AddWaypoint(document_, 5, 5, path);
  document_.sectors[960].polygons[199] = 77;  // behind the count, too
  document_.sectors[960].count = 150;
  ChangeTool(bench_.editor, ToolMode::kAddSpawn);
  bench_.editor.show.showFlags.fill(0);
  bench_.editor.show.pathFilter = 2;
  bench_.Snapshot("Type");  // which spreads the author's name
  const auto before = StateOf(document_);
  ASSERT_TRUE(Compile());

  EXPECT_EQ(document_.polygons[0].vertices[1].x, 150.5f);
  EXPECT_EQ(document_.polygons[0].vertices[2].y, 300);
  EXPECT_EQ(document_.spawns[0].x, static_cast<int>(151.5 * 256));
  EXPECT_EQ(document_.spawns[1].x, 303 * 256);
  EXPECT_EQ(document_.sceneries[0].x, -145.5f);
  EXPECT_EQ(document_.colliders[0].y, 301);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(document_.waypoints[i].y, -295 * 256) << i;
  EXPECT_EQ(PlacesOf(1), "8-22,0-30");
  EXPECT_EQ(PlacesOf(2), "");
  EXPECT_EQ(document_.sectors[960], Sector{});
  EXPECT_THAT(bench_.editor.show.showFlags, testing::Each(0)) << "as it was";
  EXPECT_TRUE(bench_.selection.Empty() && !bench_.selection.box.Complete());
  EXPECT_EQ(bench_.Status(), "0: 2 2 1 3 1, 2 &Undo Move");
  EXPECT_EQ(bench_.events.back(), "RedrawMap");
  MenuUndo(bench_.editor);
  EXPECT_EQ(StateOf(document_), before);
}

TEST_F(SectorCompilerTest, WhatTheSectorsCannotHoldIsCountedInOneMessage) {
  AddTriangle(document_, {{{-600, -600}, {600, -600}, {600, 600}}});
  for (int i = 1; i < 400; ++i) AddTriangle(document_, {{{1, 1}, {2, 1}, {1, 2}}});
  const auto warning = [](const std::string& line) {
    return Message{"Your map was compiled but its sectors do not hold all of it.\n\n" + line,
                   "Polygon warning", MessageIcon::kExclamation};
  };
  EXPECT_TRUE(Compile());
  EXPECT_THAT(bench_.TakeMessages(),
              ElementsAre(warning("Polygons left out of full sectors: 200")));
  EXPECT_EQ(At(15, 15).count, 200);
  EXPECT_EQ(At(15, 15).polygons[199], 200);
  EXPECT_EQ(At(15, 14).count, 1);
  EXPECT_EQ(PlacesOf(1), "0-30,0-30");

  // 2.47 is rounded to 2: both ends lie beyond the grid.
  for (Polygon& polygon : document_.polygons.Used()) polygon.vertices = {};
  document_.polygons[9].vertices[0].x = 74;
  EXPECT_TRUE(Compile());
  EXPECT_THAT(bench_.TakeMessages(),
              ElementsAre(warning("Polygons that reach out of the sectors: 400")));
  EXPECT_EQ(PlacesOf(10), "0-30,15-15");
  EXPECT_EQ(PlacesOf(1), "");
}

TEST_F(SectorCompilerTest, NothingInAMapLeadsOutOfTheGrid) {
  int compiled = 0;
  for (const auto& entry : std::filesystem::directory_iterator(DataPath("hostile"))) {
    for (const float odd : {0.0F, 1e30F, 32767.4F, -32768.6F, INFINITY, NAN}) {
      if (entry.path().extension() != ".pmp") continue;
      OpenMap(bench_.editor, entry.path().string());
      document_.polygons[0].vertices[2].x += odd;
      document_.polygons[1].vertices[0].y -= odd;
      if (!Compile()) continue;
      ++compiled;
      for (const Sector& sector : document_.sectors) {
        ASSERT_TRUE(sector.count >= 0 && sector.count <= 200);
        for (const std::int16_t number : sector.polygons) {
          ASSERT_TRUE(number >= 0 && number <= document_.polygons.last + 1);
        }
      }
    }
  }
  EXPECT_GT(compiled, 100);
}

}  // namespace
}  // namespace vesmora
