#include <gmock/gmock.h>

#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/edit_commands.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

struct ReorderBench : ToolBench {
  ReorderBench() {
    for (int i = 0; i < 6; ++i) {
      const auto number = static_cast<float>(i);
      AddTriangle(map, {{{number, 0}, {9, number}, {0, 9}}});
      map.normals[static_cast<std::size_t>(i)].edges.fill({1, 1, number});
      AddScenery(map, number, 0, 1);
      AddSpawn(map, number, 0, 0);
      AddCollider(map, number, 0, 8);
      AddWaypoint(map, number, 0, 1);
    }
  }

  template <typename Table, typename Number>
  static std::string Order(const Table& table, Number number) {
    std::string text;
    for (std::size_t i = 0; i < 6; ++i) text += std::to_string(static_cast<int>(number(table[i])));
    return text;
  }
  std::vector<std::string> DrawOrder() const {
    return {Order(map.polygons, [](const Polygon& p) { return p.vertices[0].x; }),
            Order(map.normals, [](const PolygonNormals& n) { return n.edges[2].z; }),
            Order(map.sceneries, [](const SceneryObject& s) { return s.x; })};
  }
};

TEST(ReorderTest, FrontKeepsTheOrderAndBackReversesIt) {
  struct Row {
    std::vector<VertexReference> vertices;
    std::vector<std::uint8_t> sceneries;
    std::string polygonsInFront, sceneriesInFront, polygonsAtBack, sceneriesAtBack;
  };
  for (const Row& row : {Row{{}, {}, "012345", "012345", "012345", "012345"},
                         Row{{{2, 1}}, {4}, "013452", "012354", "201345", "401235"},
                         Row{{{1, 0}, {1, 2}, {3, 0}, {3, 1}, {3, 2}, {4, 1}},
                             {0, 2, 5},
                             "025134",
                             "134025",
                             "431025",
                             "520134"},
                         Row{{{0, 0}, {5, 0}, {5, 2}}, {}, "123405", "012345", "501234", "012345"},
                         Row{{{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}},
                             {0, 1},
                             "012345",
                             "234501",
                             "543210",
                             "102345"}}) {
    for (const bool isFront : {true, false}) {
      ReorderBench bench;
      const DocumentState before = StateOf(bench.map);
      const auto others = std::tuple(bench.map.spawns, bench.map.colliders, bench.map.waypoints);
      for (const VertexReference vertex : row.vertices) bench.selection.vertices.Add(vertex);
      for (const std::uint8_t slot : row.sceneries) bench.selection.sceneries.Add(slot);
      bench.selection.spawns.Add(2);
      bench.selection.colliders.Add(2);
      bench.selection.waypoints.Add(2);
      if (row.vertices.empty()) ClearLists(bench.selection);
      isFront ? MenuFront(bench.editing) : MenuBack(bench.editing);
      const std::string& polygons = isFront ? row.polygonsInFront : row.polygonsAtBack;
      EXPECT_THAT(
          bench.DrawOrder(),
          ElementsAre(polygons, polygons, isFront ? row.sceneriesInFront : row.sceneriesAtBack));
      EXPECT_EQ(std::tuple(bench.map.spawns, bench.map.colliders, bench.map.waypoints), others);
      EXPECT_THAT(bench.Steps(), ElementsAre(isFront ? "Bring" : "Send"));
      EXPECT_EQ(bench.BeforeNewestStep(), before);
      EXPECT_EQ(bench.Listed(), "");
      EXPECT_THAT(bench.events, ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap"));
      EXPECT_EQ(std::get<1>(StateOf(bench.map)), std::get<1>(before));
    }
  }
}

}  // namespace
}  // namespace vesmora
