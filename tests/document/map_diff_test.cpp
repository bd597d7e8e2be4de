#include "document/map_diff.h"

#include <gmock/gmock.h>

#include <functional>

#include "document/save_preparation.h"
#include "document/waypoint_links.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using Change = std::function<void(MapDocument&)>;

std::vector<std::string> LinesOf(const MapDocument& before, const MapDocument& after) {
  std::vector<std::string> lines;
  for (const Difference& difference : CompareMaps(before, after)) {
    std::string line = Describe(difference.before) + " > " + Describe(difference.after) + ": " +
                       std::string(NameOf(difference.kind));
    if (!difference.text.empty()) line += " " + difference.text;
    lines.push_back(line);
  }
  return lines;
}

template <typename TableType>
void Delete(TableType& table, int slot) {
  std::shift_left(table.slots.begin() + slot, table.slots.begin() + table.Count(), 1);
  table.DropLast();
  table[table.Count()] = {};
}

void DeleteWaypoint(MapDocument& map, int slot) {
  WaypointSlots deleted;
  deleted.set(static_cast<std::size_t>(slot));
  FollowDeletion(map.waypoints.Used(), deleted);
  Delete(map.waypoints, slot);
  for (int i = 0; i <= map.waypoints.last; ++i) map.waypoints[i].id = i + 1;
}

TEST(MapDiffTest, EachChangeIsToldInWords) {
  const std::vector<std::pair<Change, std::vector<std::string>>> changes = {
      {[](auto& m) { m.randomId = 999; }, {}},
      {[](auto& m) { m.author = "You"; }, {"map > map: changed author from \"Me\" to \"You\""}},
      {[](auto& m) { m.texture = MakeTextureName("mud.bmp"); },
       {"map > map: changed texture from \"banana.bmp\" to \"mud.bmp\""}},
      {[](auto& m) {
         m.backgroundColor2 = {3, 2, 1, 9};
       },
       {"map > map: changed second background colour from #ffffff to #010203 alpha 9"}},
      {[](auto& m) {
         m.sectorDivision = 31;
         m.sectors[7].count = 1;
       },
       {"map > map: changed sector size from 30 to 31",
        "map > map: changed what stands in 1 of the sectors"}},
      {[](auto& m) {
         m.author = "You";
         m.looseByte3 ^= 1;
       },
       {"map > map: changed author from \"Me\" to \"You\"",
        "map > map: changed bytes that belong to no object"}},
      {[](auto& m) { m.block[3] = 1; }, {"map > map: changed bytes that belong to no object"}},
      // Polygons.
      {[](auto& m) { Delete(m.polygons, 1); }, {"polygon 2 > polygon: removed"}},
      {[](auto& m) {
         AddTriangle(m, {{{500, 0}, {510, 0}, {500, 10}}});
       },
       {"polygon > polygon 4: added"}},
      {[](auto& m) {
         for (PolygonVertex& corner : m.polygons[2].vertices) corner.x += 5;
       },
       {"polygon 3 > polygon 3: moved from 40,0 by 5,0"}},
      {[](auto& m) {
         Delete(m.polygons, 0);
         m.polygons[0].vertices[1].y = 3;
         m.polygons[0].vertices[1].color.red = 9;
         m.polygons[0].edges[2] = {};
       },
       {"polygon 1 > polygon: removed",
        "polygon 2 > polygon 1: changed corner 2 from 30,0 to 30,3, colour 2 from #010101 to "
        "#090101, edge 3 made passable"}},
      {[](auto& m) {
         Delete(m.polygons, 0);
         std::swap(m.polygons[0].vertices[0], m.polygons[0].vertices[1]);
         for (PolygonVertex& corner : m.polygons[1].vertices) corner.y += 5;
         auto& corners = m.polygons[1].vertices;
         std::rotate(corners.begin(), corners.begin() + 1, corners.end());
       },
       {"polygon 1 > polygon: removed", "polygon 2 > polygon 1: changed corners turned",
        "polygon 3 > polygon 2: moved from 50,0 by 0,5, corners turned"}},
      {[](auto& m) { std::swap(m.polygons[0], m.polygons[2]); },
       {"polygon > polygon: changed the order of these objects"}},
      // The others.
      {[](auto& m) {
         Delete(m.spawns, 0);
         m.spawns[1].y += 256;
       },
       {"spawn 1 > spawn: removed", "spawn 3 > spawn 2: moved from 40,20 by 0,1"}},
      {[](auto& m) {
         m.sceneries[0].type = 200;
         m.sceneries[0].level = 50;
       },
       {"scenery 1 > scenery 1: changed type from \"Long Grass\" to 200, visibility from 255 to "
        "50"}},
      // Connections follow their waypoints to other slots.
      {[](auto& m) { DeleteWaypoint(m, 1); },
       {"waypoint 2 > waypoint: removed", "waypoint 1 > waypoint 1: changed leads no longer to 2"}},
      {[](auto& m) { AddConnection(m.waypoints[1], 0); },
       {"waypoint 2 > waypoint 2: changed leads now to 1"}},
      {[](auto& m) { std::swap(m.waypoints[0].connections[0], m.waypoints[0].connections[1]); },
       {"waypoint 1 > waypoint 1: changed the order of its connections"}},
  };
  const auto before = std::make_unique<MapDocument>();
  ResetToNewMap(*before);
  before->author = "Me";
  AddNumbered(*before, 3);
  AddConnection(before->waypoints[0], 1);
  AddConnection(before->waypoints[0], 2);
  for (const auto& [change, lines] : changes) {
    const auto after = std::make_unique<MapDocument>(*before);
    change(*after);
    EXPECT_EQ(LinesOf(*before, *after), lines) << "change " << &lines - &changes.front().second;
  }
}

}  // namespace
}  // namespace vesmora
