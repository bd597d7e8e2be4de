#include "document/map_checks.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>

#include "document/waypoint_links.h"
#include "launch/sector_compiler.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAreArray;

/// A map that nothing is wrong with, as it is read from its file.
void MakeSound(MapDocument& map) {
  ResetToNewMap(map);
  map.author = "Me";
  for (const float x : {-300.0f, 0.0f, 300.0f}) {
    AddTriangle(map, {{{x, 0}, {x + 100, 40}, {x - 100, 60}}});
  }
  AddSpawn(map, 20, -50, kNormalTeam);
  AddSpawn(map, -20, -50, kNormalTeam);
  AddScenery(map, 10.5f, -9.5f, 3);
  AddCollider(map, 200, -100, 40);
  AddWaypoint(map, -100, -60, 1, {2});
  AddWaypoint(map, 100, -60, 2, {1});
  CompileMap(map, false);
  Selection selection;
  Bytes file(kMapFileSize);
  MakeMapFile(map, selection, 0.5, file);
}

std::vector<std::string> Found(const MapDocument& map, const std::string& name) {
  const auto scratch = std::make_unique<MapDocument>();
  std::vector<std::string> lines;
  for (const Finding& finding :
       CheckMap({map, name, static_cast<std::int16_t>(map.polygons.Count())}, *scratch)) {
    lines.push_back(std::string(finding.severity == Severity::kError ? "error " : "hint ") +
                    std::string(finding.check) + " " + Describe(finding.object) +
                    (finding.place ? " at " + PlaceText(*finding.place) : ""));
  }
  return lines;
}

/// As a file holds it, however long.
void SpreadAuthor(MapDocument& map, const std::string& author) {
  for (std::size_t i = 0; i < author.size(); ++i) {
    map.colliders.slots[i].authorChar = static_cast<std::uint8_t>(author[i]);
  }
  map.author = ReadAuthor(map);
}

struct Fault {
  std::function<void(MapDocument&)> plant;
  std::vector<std::string> found;
  std::string name = "map.pmp";
};

TEST(MapChecksTest, EachFaultIsFoundWhereItIs) {
  const auto nan = std::nanf("");
  const std::vector<Fault> faults = {
      {[](auto&) {}, {}},
      {[](auto& m) { m.texture[0] = 0; }, {"hint no-texture map"}},
      {[](auto& m) { m.texture[1] = '\x1b'; }, {"error control-character map"}},
      // Polygons.
      {[=](auto& m) { m.polygons[1].vertices[2].x = nan; },
       {"error not-a-number polygon 2, corner 3", "error sectors-stale sector 11,14 at -108,-27",
        "hint save-changes polygon 2 at 100,10"}},
      {[](auto& m) { m.polygons[1].vertices[2].u = -INFINITY; },
       {"error not-a-number polygon 2, corner 3"}},
      {[](auto& m) { m.polygons[1].vertices[0].v = 10001; },
       {"error value-range polygon 2, corner 1"}},
      {[](auto& m) { m.polygons[1].vertices[0].rhw = -1e9f; },
       {"error value-range polygon 2, corner 1"}},
      {[](auto& m) { m.polygons[1].edges[0].z = m.polygons[1].edges[2].x = INFINITY; },
       {"error not-a-number polygon 2", "hint save-changes polygon 2 at 100,10"}},
      {[](auto& m) { m.polygons[1].vertices[1].y = 20; },
       {"error no-area polygon 2 at 100,10", "error sectors-stale sector 11,14 at -108,-27",
        "hint save-changes polygon 2 at 100,10"}},
      {[](auto& m) { m.polygons[1].vertices[1].y = 19.99f; },
       {"hint no-area polygon 2 at 100,10", "error sectors-stale sector 11,14 at -108,-27",
        "hint save-changes polygon 2 at 100,10"}},
      {[](auto& m) { std::swap(m.polygons[1].vertices[0], m.polygons[1].vertices[1]); },
       {"hint corner-order polygon 2 at 0,-30"}},
      {[](auto& m) {
         m.polygons[0].edges[1] = {0.1f, 0.2f, 0};
       },
       {"hint save-changes polygon 1 at -200,10"}},
      // Spawns and the game's rules.
      {[](auto& m) { m.spawns[1].team = 3; }, {"error spawn-team spawn 2 at -20,-50.003906"}},
      {[](auto& m) {
         m.spawns[1].y = 0;
         m.spawns[1].x = 0;
       },
       {"error spawn-in-polygon spawn 2 at 0,0", "hint save-changes spawn 2 at 0,0"}},
      {[](auto& m) { m.spawns[1].x += 100; },
       {"hint save-changes spawn 2 at -19.609375,-50.003906"}},
      {[](auto& m) { m.spawns[0].x = 8388607 * 256 / 250; },
       {"error far-outside spawn 1 at 33554.426,-50",
        "hint save-changes spawn 1 at 33554.426,-50"}},
      {[](auto& m) { m.spawns[0].team = kRedTeam; }, {"error flag-map-name spawn 1 at 20,-50"}},
      {[](auto&) {}, {"error flag-order spawn 1 at 20,-50"}, "/maps/CTF_a.pmp"},
      {[](auto& m) {
         m.spawns[0].team = kRedTeam;
         m.spawns[1].team = kBlueTeam;
       },
       {},
       "C:\\maps\\ctf_a.pmp"},
      {[](auto& m) { m.spawns.DropLast(); },
       {"error flag-missing map", "hint table-gap map"},
       "ctf_a.pmp"},
      {[](auto& m) { m.spawns = {}; }, {"hint no-spawns map"}},
      // Sceneries and colliders.
      {[](auto& m) { m.sceneries[0].type = 22; }, {"error scenery-type scenery 1 at 10,-10"}},
      {[](auto& m) { m.sceneries[0].type = 0; }, {"error scenery-type scenery 1 at 10,-10"}},
      {[=](auto& m) { m.sceneries[0].scaleY = nan; }, {"error not-a-number scenery 1"}},
      {[](auto& m) { m.sceneries[0].scaleX = -1001; }, {"error value-range scenery 1"}},
      {[](auto& m) { m.sceneries[0].scaleY = 0; }, {"error value-range scenery 1 at 10,-10"}},
      {[](auto& m) { m.sceneries[0].rotation = 101; }, {"error value-range scenery 1"}},
      {[](auto& m) { m.sceneries[0].height = -1; }, {"hint value-range scenery 1 at 10,-10"}},
      {[](auto& m) { m.sceneries[0].y = 4e4f; }, {"error far-outside scenery 1 at 10,39999.5"}},
      {[](auto& m) { m.colliders[0].radius = 0; }, {"error collider-size collider 1 at 200,-100"}},
      {[](auto& m) { m.colliders[0].radius = INFINITY; }, {"error not-a-number collider 1"}},
      {[](auto& m) { m.colliders[0].x = -4e4f; }, {"error far-outside collider 1 at -40000,-100"}},
      // Waypoints.
      {[](auto& m) { m.waypoints[0].id = 7; }, {"error waypoint-number waypoint 1 at -100,-60"}},
      {[](auto& m) { m.waypoints[0].path = 3; }, {"error waypoint-path waypoint 1 at -100,-60"}},
      {[](auto& m) { m.waypoints[0].botSettings[4] = 2; },
       {"error bot-setting waypoint 1 at -100,-60"}},
      {[](auto& m) { m.waypoints[0].connectionCount = 21; },
       {"error connection-count waypoint 1 at -100,-60"}},
      {[](auto& m) { m.waypoints[0].connectionCount = -1; },
       {"error connection-count waypoint 1 at -100,-60",
        "hint waypoint-unreached waypoint 2 at 100,-60"}},
      {[](auto& m) { m.waypoints[0].connections[0] = 0; },
       {"error connection-target waypoint 1 at -100,-60",
        "hint waypoint-unreached waypoint 2 at 100,-60"}},
      {[](auto& m) {
         for (const int target : {1, 1, 0, 0}) AddConnection(m.waypoints[0], target);
       },
       {"hint connection-twice waypoint 1 at -100,-60",
        "hint connection-self waypoint 1 at -100,-60"}},
      {[](auto& m) { AddConnection(m.waypoints[0], 1); },
       {"hint connection-twice waypoint 1 at -100,-60"}},
      {[](auto& m) { AddConnection(m.waypoints[0], 0); },
       {"hint connection-self waypoint 1 at -100,-60"}},
      // Sectors.
      {[](auto& m) { m.sectors = {}; }, {"hint not-compiled map"}},
      {[](auto& m) { m.sectorDivision = 0; }, {"error sector-size map"}},
      {[](auto& m) { m.sectorDivision = 32768; }, {"error sector-size map"}},
      {[](auto& m) { m.sectors[3 * 31 + 4].count = 201; },
       {"error sector-count sector 3,4 at -324,-297"}},
      {[](auto& m) {
         m.sectors[3 * 31 + 4] = m.sectors[3 * 31 + 5] = {{4}, 1};
       },
       {"error sector-polygon sector 3,4 at -324,-297"}},
      {[](auto& m) {
         m.sectors[3 * 31 + 4] = {{1}, 1};
       },
       {"error sectors-stale sector 3,4 at -324,-297"}},
      {[](auto& m) {
         m.sectorDivision = 5;
         FillSectors(m);
       },
       {"error sectors-outside map"}},
      // What a save makes of it.
      {[](auto& m) { m.author = " "; }, {"hint no-author map"}},
      {[](auto& m) { SpreadAuthor(m, std::string(kReadAuthorLength, 'a')); }, {}},
      {[](auto& m) { SpreadAuthor(m, std::string(kReadAuthorLength + 1, 'a')); },
       {"hint author-cut map"}},
      {[](auto& m) {
         while (!m.colliders.Full()) m.colliders.Append(m.colliders[0]);
         SpreadAuthor(m, std::string(kColliderCapacity, 'a'));
       },
       {"hint author-cut map"}},
      {[](auto& m) { m.colliders[9].authorChar = 'x'; }, {"hint free-slots map"}},
      {[](auto& m) { m.spawns[4].active = -3; }, {"hint table-gap map"}},
      {[](auto& m) { m.sceneries[1].carriedTail[2] = 1; }, {"hint free-slots map"}},
      {[](auto& m) { m.waypoints[2].active = 1; }, {"hint table-gap map"}},
      {[](auto& m) {
         while (!m.sceneries.Full()) m.sceneries.Append(m.sceneries[0]);
       },
       {"hint scenery-dropped scenery 255 at 10,-10"}},
  };
  for (const Fault& fault : faults) {
    const auto map = std::make_unique<MapDocument>();
    MakeSound(*map);
    fault.plant(*map);
    EXPECT_THAT(Found(*map, fault.name), ElementsAreArray(fault.found))
        << "fault " << &fault - faults.data();
  }
}

}  // namespace
}  // namespace vesmora
