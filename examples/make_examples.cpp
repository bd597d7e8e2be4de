// Writes the example maps into a folder: make_examples FOLDER
// Nothing here is random, so the files come out the same every time.
#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string>
#include <vector>

#include "document/map_file.h"
#include "launch/sector_compiler.h"
#include "map_maker.h"

namespace vesmora {
namespace {

using Matter = MapMaker::Matter;

constexpr Soil kMeadow{Color(0x0B7A1C), Color(0x70431A)};
constexpr Soil kRock{Color(0x4C5274), Color(0x2C2840)};
constexpr Soil kLeaves{Color(0x0F7A3C), Color(0x6FA01C)};
constexpr Soil kTrunk{Color(0x7A4A20), Color(0x4A2A10)};
constexpr Soil kWater{Color(0x2A62C8), Color(0x123A80)};
constexpr Soil kPlanks{Color(0x8A5A1E), Color(0x5A3610)};
constexpr Soil kRedSoil{Color(0xB02A18), Color(0x682818)};
constexpr Soil kBlueSoil{Color(0x1E48C0), Color(0x203468)};

/// A cave for everybody against everybody: a valley with an old tree, and
/// islands over it, reached by flying.
void MakeHollow(MapMaker& maker) {
  const Point floor[] = {{-540, 30}, {-490, 60}, {-430, 128}, {-350, 150}, {-270, 190}, {-180, 240},
                         {-90, 262}, {0, 255},   {80, 268},   {170, 240},  {250, 200},  {330, 196},
                         {400, 150}, {470, 118}, {505, 60},   {540, 24}};
  const Point roof[] = {{-540, -180}, {-450, -215}, {-360, -200}, {-260, -240},
                        {-150, -226}, {-40, -256},  {70, -236},   {180, -246},
                        {280, -210},  {380, -222},  {460, -190},  {540, -170}};
  std::vector<Point> sky(std::begin(roof), std::end(roof));
  for (Point& point : sky) point.y = -330;
  const Point leftWall[] = {{-450, -215}, {-508, -120}, {-496, -40}, {-490, 60}};
  const Point leftEdge[] = {{-540, -180}, {-540, -110}, {-540, -45}, {-540, 30}};
  const Point rightWall[] = {{460, -190}, {500, -110}, {488, -30}, {505, 60}};
  const Point rightEdge[] = {{540, -170}, {540, -105}, {540, -40}, {540, 24}};
  maker.AddGround(floor, 350, kMeadow);
  maker.AddBand(sky, roof, {kRock.deep, kRock.surface});
  maker.AddBand(leftWall, leftEdge, kRock);
  maker.AddBand(rightWall, rightEdge, kRock);

  const Point west[] = {{-370, -10}, {-330, -22}, {-270, -18}, {-210, -24}, {-170, -12}};
  const Point east[] = {{190, -6}, {235, -20}, {290, -16}, {350, -22}, {395, -8}};
  const Point high[] = {{-120, -112}, {-60, -122}, {0, -118}, {60, -124}, {125, -110}};
  const Point low[] = {{-220, 112}, {-180, 104}, {-130, 108}, {-95, 116}};
  const Point ledge[] = {{110, 108}, {150, 100}, {190, 104}, {225, 114}};
  for (const Line surface : {Line(west), Line(east), Line(high)}) {
    maker.AddIsland(surface, 36, kMeadow);
  }
  maker.AddIsland(low, 20, kRock);
  maker.AddIsland(ledge, 20, kRock);

  // One can walk through the tree.
  const Point trunkLeft[] = {{-14, 258}, {-8, 210}, {-7, 160}, {-18, 120}};
  const Point trunkRight[] = {{16, 258}, {10, 208}, {9, 158}, {22, 118}};
  const Point crown[] = {{-78, 110}, {-70, 58}, {-30, 18}, {22, 10},
                         {66, 44},   {82, 96},  {44, 128}, {-36, 132}};
  maker.AddBand(trunkLeft, trunkRight, kTrunk, Matter::kPassable);
  maker.AddFan({2, 76}, crown, kLeaves, Matter::kPassable);

  maker.AddStanding(std::array<Prop, 20>{{{Kind::kGrass, {-395, 0}, 0.6f},
                                          {Kind::kLongGrass, {-318, 0}, 1},
                                          {Kind::kStone, {-225, -3}, 1.1f},
                                          {Kind::kDarkGrass, {-135, 0}, 0.7f},
                                          {Kind::kShortGrass, {-45, 0}, 0.4f, 191},
                                          {Kind::kLongGrass, {38, 0}, 1.1f},
                                          {Kind::kGrass, {120, 0}, 0.7f},
                                          {Kind::kEarth, {205, -2}, 1},
                                          {Kind::kFence, {290, 0}, 0.7f},
                                          {Kind::kBigCrate, {-262, 0}, 2},
                                          {Kind::kBigCrate, {310, 0}, 2.2f},
                                          {Kind::kBigCrate, {333, 0}, 2.2f},
                                          {Kind::kSmallCrate, {321, 22}, 2.4f},
                                          {Kind::kBarrel, {-378, 0}, 1.8f},
                                          {Kind::kBarrel, {430, 0}, 1.8f},
                                          {Kind::kGarbage, {362, 0}, 1.2f},
                                          {Kind::kMetalRubble, {-462, -2}, 0.8f},
                                          {Kind::kMetalDirt, {225, -4}, 0.7f, 128},
                                          {Kind::kBrownDirt, {-160, -5}, 0.8f, 128},
                                          {Kind::kSandbags, {60, 0}, 1.6f}}},
                    floor);
  maker.AddStanding(std::array<Prop, 3>{{{Kind::kGrass, {-300, 0}, 0.5f},
                                         {Kind::kSandbags, {-240, 0}, 1.5f},
                                         {Kind::kSmallCrate, {-345, 0}, 2}}},
                    west);
  maker.AddStanding(std::array<Prop, 3>{{{Kind::kDarkGrass, {262, 0}, 0.5f},
                                         {Kind::kSandbags, {320, 0}, 1.5f},
                                         {Kind::kBarrel, {366, 0}, 1.5f}}},
                    east);
  maker.AddStanding(std::array<Prop, 3>{{{Kind::kLongGrass, {-30, 0}, 0.9f},
                                         {Kind::kBigCrate, {22, 0}, 2},
                                         {Kind::kSmallCrate, {23, 20}, 2}}},
                    high);
  maker.AddHanging(std::array<Prop, 15>{{{Kind::kLiana, {-300, -224}, 1.8f},
                                         {Kind::kLiana, {-190, -232}, 2.2f},
                                         {Kind::kLiana, {-95, -242}, 1.2f, 191},
                                         {Kind::kLiana, {130, -242}, 1.9f},
                                         {Kind::kLiana, {330, -216}, 1.5f},
                                         {Kind::kLiana, {415, -208}, 2.3f, 191},
                                         {Kind::kManyLianas, {-400, -208}, 1.8f},
                                         {Kind::kManyLianas, {215, -234}, 1.7f},
                                         {Kind::kManyLianas, {-90, -104}, 0.9f, 128},
                                         {Kind::kCeilingStuff, {-40, -254}, 1.4f},
                                         {Kind::kCeilingStuff, {10, -248}, 1.1f},
                                         {Kind::kCeilingStuff, {60, -238}, 1.3f, 191},
                                         {Kind::kLiana, {-250, 4}, 1},
                                         {Kind::kLiana, {272, 10}, 1.1f},
                                         {Kind::kLiana, {30, -96}, 1.3f}}});

  maker.AddSpawns(std::array<Spawn, 10>{{{Team::kNormal, {-400, 115}},
                                         {Team::kNormal, {400, 120}},
                                         {Team::kNormal, {-110, 235}},
                                         {Team::kNormal, {110, 235}},
                                         {Team::kNormal, {-280, -42}},
                                         {Team::kNormal, {290, -42}},
                                         {Team::kNormal, {0, -145}},
                                         {Team::kNormal, {-155, 82}},
                                         {Team::kNormal, {165, 78}},
                                         {Team::kNormal, {-300, 148}}}});
  maker.AddColliders(std::array<Ball, 6>{{{{-250, 168}, 30},
                                          {{321, 180}, 44},
                                          {{-378, 134}, 18},
                                          {{22, -130}, 22},
                                          {{-470, -150}, 50},
                                          {{470, -130}, 46}}});
  // Over the floor to the right, up and back over the islands.
  maker.AddPath(1, std::array<Stop, 12>{{{{-420, 112}, "R", {1}},
                                         {{-290, 165}, "R", {2}},
                                         {{-130, 238}, "R", {3}},
                                         {{20, 240}, "R", {4}},
                                         {{150, 232}, "R", {5}},
                                         {{300, 184}, "RU", {6}},
                                         {{420, 90}, "UF", {7}},
                                         {{380, -40}, "LF", {8}},
                                         {{240, -40}, "LUF", {9}},
                                         {{40, -142}, "L", {10}},
                                         {{-150, -110}, "LD", {11}},
                                         {{-230, -42}, "LD", {0}}}});
  // The other way round.
  maker.AddPath(2, std::array<Stop, 10>{{{{420, 126}, "L", {1}},
                                         {{270, 184}, "L", {2}},
                                         {{110, 246}, "L", {3}},
                                         {{-60, 242}, "L", {4}},
                                         {{-220, 200}, "LU", {5}},
                                         {{-420, 60}, "UF", {6}},
                                         {{-350, -44}, "RF", {7}},
                                         {{-60, -146}, "R", {8}},
                                         {{160, -80}, "RD", {9, 2}},
                                         {{310, -42}, "RD", {0}}}});
}

/// What lies on one side of the river; `side` is -1 on the left, 1 on the right.
void MakeShore(MapMaker& maker, float side) {
  const auto mirrored = [side](std::vector<Point> line) {
    for (Point& point : line) point.x *= -side;
    if (side > 0) std::ranges::reverse(line);
    return line;
  };
  const auto at = [side](float x, float y) { return Point{-side * x, y}; };
  const Soil& home = side < 0 ? kRedSoil : kBlueSoil;

  const auto hill = mirrored({{-660, -60},
                              {-615, 20},
                              {-540, 60},
                              {-450, 66},
                              {-370, 104},
                              {-290, 128},
                              {-215, 112},
                              {-165, 112}});
  const auto bank = mirrored({{-165, 112}, {-140, 226}, {-70, 286}, {0, 300}});
  const auto river = mirrored({{-140, 226}, {-70, 222}, {0, 226}});
  const auto bed = mirrored({{-140, 226}, {-70, 286}, {0, 300}});
  const auto arch = mirrored({{-180, 112}, {-120, 98}, {-60, 88}, {0, 84}});
  const auto vault = mirrored({{-166, 140}, {-120, 118}, {-60, 104}, {0, 100}});
  const auto rope = mirrored({{-236, -52}, {-160, -34}, {-80, -24}, {0, -20}});
  const auto ropeBelow = mirrored({{-236, -44}, {-160, -26}, {-80, -16}, {0, -12}});
  const auto tower = mirrored({{-345, -40}, {-310, -52}, {-260, -52}, {-225, -44}});
  const auto shelf = mirrored({{-640, -110}, {-580, -118}, {-510, -116}, {-440, -104}});
  const auto perch = mirrored({{-150, -128}, {-95, -136}, {-40, -132}});
  const auto legLeft = mirrored({{-312, -30}, {-316, 50}, {-320, 118}});
  const auto legRight = mirrored({{-300, -30}, {-303, 50}, {-306, 122}});
  maker.AddGround(hill, 390, home);
  maker.AddGround(bank, 390, home);
  maker.AddBand(river, bed, kWater, Matter::kPassable);
  maker.AddBand(arch, vault, kRock);
  maker.AddBand(rope, ropeBelow, kPlanks);
  maker.AddIsland(tower, 18, kPlanks);
  maker.AddBand(legLeft, legRight, kTrunk, Matter::kPassable);
  maker.AddIsland(shelf, 34, home);
  maker.AddIsland(perch, 16, kMeadow);

  maker.AddStanding(std::array<Prop, 8>{{{Kind::kSandbags, at(-480, 0), 2},
                                         {Kind::kGrass, at(-410, 0), 0.6f},
                                         {Kind::kBigCrate, at(-590, 0), 2.2f},
                                         {Kind::kMetalRubble, at(-335, -3), 0.9f},
                                         {Kind::kBarrel, at(-268, 0), 1.8f},
                                         {Kind::kGreyBoard, at(-195, 0), 0.6f},
                                         {Kind::kStone, at(-240, -3), 0.9f},
                                         {Kind::kShortGrass, at(-505, 0), 0.3f, 191}}},
                    hill);
  maker.AddStanding(std::array<Prop, 2>{{{Kind::kThinBoard, at(-150, 0), 1},
                                         {Kind::kSandbags, at(-40, 0), 1.6f}}},
                    arch);
  maker.AddStanding(std::array<Prop, 2>{{{Kind::kWoodenBoard, at(-285, 0), 1},
                                         {Kind::kSmallCrate, at(-255, 0), 2}}},
                    tower);
  maker.AddStanding(std::array<Prop, 1>{{{Kind::kFence, at(-560, 0), 0.9f}}}, shelf);
  maker.AddHanging(std::array<Prop, 3>{{{Kind::kLiana, at(-520, -84), 1.4f},
                                        {Kind::kLiana, at(-470, -94), 1},
                                        {Kind::kLiana, at(-95, -120), 1.2f}}});
  maker.AddColliders(
      std::array<Ball, 3>{{{at(-590, 30), 26}, {at(-268, 112), 18}, {at(-285, -30), 16}}});
}

/// The same way from the other shore, a little higher so that both can be seen.
std::vector<Stop> Mirrored(std::vector<Stop> stops) {
  for (Stop& stop : stops) {
    stop.at = {-stop.at.x, stop.at.y - 18};
    for (char& way : stop.ways) way = way == 'L' ? 'R' : way == 'R' ? 'L' : way;
  }
  return stops;
}

/// Two shores, a stone bridge and a rope bridge above it.
void MakeBridges(MapMaker& maker) {
  maker.AddSpawns(std::array<Spawn, 2>{{{Team::kRed, {-545, 40}}, {Team::kBlue, {545, 40}}}});
  for (const Point at : {Point{-620, -20}, {-460, 44}, {-400, 70}, {-540, -138}, {-290, -72}}) {
    maker.AddSpawns(std::array<Spawn, 2>{{{Team::kRed, at}, {Team::kBlue, {-at.x, at.y}}}});
  }
  MakeShore(maker, -1);
  MakeShore(maker, 1);
  // To the other flag over the lower bridge, and home over the upper one.
  const std::vector<Stop> attack = {
      {{-540, 44}, "R", {1}},   {{-360, 92}, "R", {2}}, {{-190, 96}, "R", {3}},
      {{0, 68}, "R", {4}},      {{190, 94}, "R", {5}},  {{360, 86}, "R", {6}},
      {{540, 40}, "UF", {7}},   {{290, -66}, "L", {8}}, {{0, -34}, "L", {9}},
      {{-290, -66}, "LD", {0}},
  };
  maker.AddPath(1, attack);
  maker.AddPath(2, Mirrored(attack));
}

/// A bowl with one stone over it: what a first map may look like.
void MakeSmall(MapMaker& maker) {
  const Point floor[] = {{-300, -20}, {-170, 110}, {0, 140}, {170, 110}, {300, -20}};
  const Point stone[] = {{-70, 10}, {0, 0}, {70, 10}};
  maker.AddGround(floor, 260, kMeadow);
  maker.AddIsland(stone, 24, kRock);
  maker.AddStanding(std::array<Prop, 4>{{{Kind::kGrass, {-85, 0}, 0.7f},
                                         {Kind::kLongGrass, {60, 0}, 1},
                                         {Kind::kBigCrate, {-140, 0}, 2},
                                         {Kind::kBarrel, {120, 0}, 1.8f}}},
                    floor);
  maker.AddHanging(std::array<Prop, 1>{{{Kind::kLiana, {4, 20}, 1}}});
  maker.AddSpawns(std::array<Spawn, 2>{{{Team::kNormal, {-200, 50}}, {Team::kNormal, {200, 50}}}});
  maker.AddColliders(std::array<Ball, 1>{{{{-140, 96}, 24}}});
  maker.AddPath(1, std::array<Stop, 3>{
                       {{{-160, 90}, "R", {1}}, {{0, 120}, "RL", {2, 0}}, {{160, 90}, "L", {1}}}});
}

/// Why the map that was written is no good; empty when it is.
std::string ProblemOf(const WriteReport& report) {
  if (!report.status.Ok()) return report.status.reason;
  if (report.findings.duplicateVertices) return "A polygon has two corners on one spot.";
  if (report.findings.spawns != SpawnProblem::kNone) return "Its spawn points do not fit its name.";
  return {};
}

/// Ready for the game.
bool Save(MapMaker& maker, const std::string& path) {
  const SectorShortage shortage = CompileMap(maker.Map(), false);
  Selection selection;
  const WriteReport report = WriteMap(maker.Map(), selection, SystemFileCalls(), 0.5, path, false);
  std::string problem = ProblemOf(report);
  if (shortage.outside + shortage.crowded > 0) problem = "Its sectors do not hold all of it.";
  if (!problem.empty()) std::fprintf(stderr, "%s: %s\n", path.c_str(), problem.c_str());
  return problem.empty();
}

int Run(const std::string& folder) {
  MapMaker hollow(Color(0x7FA8C9), Color(0x2B3A55));
  MakeHollow(hollow);
  MapMaker bridges(Color(0xD8B080), Color(0x704858));
  MakeBridges(bridges);
  MapMaker small(Color(0x90C8E8), Color(0x406080));
  MakeSmall(small);
  const bool saved = Save(hollow, folder + "/Hollow.pmp") &&
                     Save(bridges, folder + "/ctf_Bridges.pmp") &&
                     Save(small, folder + "/Small.pmp");
  return saved ? 0 : 1;
}

}  // namespace
}  // namespace vesmora

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_examples FOLDER\n");
    return 2;
  }
  return vesmora::Run(argv[1]);
}
