#include "pieces.h"

#include <array>
#include <string>
#include <vector>

#include "document/prefab_file.h"
#include "document/save_preparation.h"
#include "map_maker.h"

namespace vesmora {
namespace {

using Matter = MapMaker::Matter;

constexpr Soil kConcrete{Color(0x6C7074), Color(0x3E4248)};
constexpr Soil kStonework{Color(0x807458), Color(0x463E32)};
constexpr Soil kRock{Color(0x6A6258), Color(0x34323A)};
constexpr Soil kMeadow{Color(0x4E9A30), Color(0x6E4A24)};
constexpr Soil kEarth{Color(0x96703C), Color(0x543A20)};
constexpr Soil kPlanks{Color(0xB07A3A), Color(0x7A5024)};
constexpr Soil kTrunk{Color(0x8A6034), Color(0x583A1C)};
constexpr Soil kRope{Color(0x9A6C28), Color(0x6E4A18)};
constexpr Soil kSteel{Color(0x50688C), Color(0x2C3C58)};
constexpr Soil kLeaves{Color(0x4C9022), Color(0x225A1C)};

/// An upright rectangle.
void AddBlock(MapMaker& maker, Point topLeft, Point bottomRight, const Soil& soil,
              Matter matter = Matter::kSolid) {
  const Point upper[] = {topLeft, {bottomRight.x, topLeft.y}};
  const Point lower[] = {{topLeft.x, bottomRight.y}, bottomRight};
  maker.AddBand(upper, lower, soil, matter);
}

/// A slanting beam; `thickness` is measured straight down.
void AddBeam(MapMaker& maker, Point from, Point to, float thickness, const Soil& soil) {
  const Point upper[] = {from, to};
  const Point lower[] = {{from.x, from.y + thickness}, {to.x, to.y + thickness}};
  maker.AddBand(upper, lower, soil, Matter::kPassable);
}

/// On level ground.
template <std::size_t kCount>
void AddProps(MapMaker& maker, float ground, const std::array<Prop, kCount>& props) {
  const Point level[] = {{-1000, ground}, {1000, ground}};
  maker.AddStanding(props, level);
}

void MakeBunker(MapMaker& maker) {
  // Low at the front with a slit to shoot from, open at the back.
  const Point roof[] = {{-132, -22}, {-96, -46}, {90, -46}, {118, -28}};
  const Point ceiling[] = {{-124, -12}, {-90, -26}, {86, -26}, {112, -16}};
  const Point front[] = {{-116, 14}, {-100, 10}};
  const Point frontFoot[] = {{-124, 36}, {-92, 36}};
  AddBlock(maker, {-86, -26}, {-78, 36}, kSteel, Matter::kPassable);
  AddBlock(maker, {74, -26}, {82, 36}, kSteel, Matter::kPassable);
  maker.AddBand(roof, ceiling, kConcrete);
  maker.AddBand(front, frontFoot, kConcrete);
  AddBlock(maker, {96, -22}, {108, -6}, kConcrete);
  AddBlock(maker, {-140, 36}, {130, 52}, kConcrete);
  AddProps(maker, 36,
           std::array<Prop, 6>{{{Kind::kSandbags, {-104, 24}, 1.2f},
                                {Kind::kBigCrate, {-52, 0}, 2},
                                {Kind::kBigCrate, {-30, 0}, 2},
                                {Kind::kSmallCrate, {-42, 20}, 2},
                                {Kind::kBarrel, {48, 0}, 1.6f},
                                {Kind::kSandbags, {104, 0}, 2}}});
  maker.AddColliders(std::array<Ball, 2>{{{{-41, 24}, 30}, {{48, 28}, 16}}});
}

void MakeBridge(MapMaker& maker) {
  const Point deck[] = {{-180, 20}, {-165, 15}, {-120, 2}, {-60, -9}, {0, -13},
                        {60, -9},   {120, 2},   {165, 15}, {180, 20}};
  const Point vault[] = {{-180, 76}, {-150, 76}, {-112, 40}, {-58, 14}, {0, 6},
                         {58, 14},   {112, 40},  {150, 76},  {180, 76}};
  maker.AddBand(deck, vault, kStonework);
  for (const float x : {-176.0f, -104.0f, 96.0f, 168.0f}) {
    const Footing foot = FootingAt(deck, x + 4);
    AddBlock(maker, {x, foot.y - 26}, {x + 8, foot.y + 2}, kStonework, Matter::kPassable);
  }
  maker.AddStanding(
      std::array<Prop, 2>{{{Kind::kFence, {-48, 0}, 0.9f}, {Kind::kFence, {48, 0}, 0.9f}}}, deck);
}

void MakeRopeBridge(MapMaker& maker) {
  const Point deck[] = {{-170, 4}, {-110, 16}, {-50, 23}, {0, 25}, {50, 23}, {110, 16}, {170, 4}};
  const Point below[] = {{-170, 10}, {-110, 22}, {-50, 29}, {0, 31},
                         {50, 29},   {110, 22},  {170, 10}};
  const Point rope[] = {{-164, -26}, {-110, -10}, {-50, -2}, {0, 0},
                        {50, -2},    {110, -10},  {164, -26}};
  std::array<Point, 7> ropeBelow{};
  for (std::size_t i = 0; i < ropeBelow.size(); ++i) ropeBelow[i] = {rope[i].x, rope[i].y + 2};
  maker.AddBand(rope, ropeBelow, kRope, Matter::kPassable);
  for (std::size_t i = 1; i + 1 < ropeBelow.size(); ++i) {
    AddBlock(maker, {rope[i].x - 1, rope[i].y + 2}, {rope[i].x + 1, deck[i].y}, kRope,
             Matter::kPassable);
  }
  maker.AddBand(deck, below, kPlanks);
  for (const float x : {-170.0f, 162.0f}) {
    AddBlock(maker, {x, -34}, {x + 8, 40}, kTrunk, Matter::kPassable);
  }
}

void MakeStairs(MapMaker& maker) {
  constexpr int kSteps = 8;
  for (int i = 0; i < kSteps; ++i) {
    const auto step = static_cast<float>(i);
    AddBlock(maker, {-100 + step * 25, 40 - step * 12}, {-75 + step * 25, 56}, kStonework);
  }
}

void MakeRamp(MapMaker& maker) {
  const Point surface[] = {{-150, 50}, {-70, 10}, {10, -26}, {50, -36}, {110, -36}};
  const Point foot[] = {{-150, 50}, {-70, 50}, {10, 50}, {50, 50}, {110, 50}};
  maker.AddBand(surface, foot, kEarth);
  maker.AddStanding(std::array<Prop, 4>{{{Kind::kGrass, {-40, 0}, 0.6f},
                                         {Kind::kStone, {-100, -3}, 0.8f},
                                         {Kind::kSandbags, {88, 0}, 2},
                                         {Kind::kShortGrass, {60, 0}, 0.3f}}},
                    surface);
  maker.AddColliders(std::array<Ball, 1>{{{{88, -40}, 20}}});
}

void MakeTower(MapMaker& maker) {
  for (const float side : {-1.0f, 1.0f}) {
    const Point outer[] = {{side * 62, 130}, {side * 46, -60}};
    const Point inner[] = {{side * 52, 130}, {side * 38, -60}};
    maker.AddBand(outer, inner, kTrunk, Matter::kPassable);
    AddBeam(maker, {-side * 55, 100}, {side * 49, 24}, 6, kPlanks);
    AddBlock(maker, {side * 50 - 3, -116}, {side * 50 + 3, -60}, kTrunk, Matter::kPassable);
    AddBlock(maker, {side * 62 - 4, -86}, {side * 62 + 4, -60}, kPlanks);
  }
  AddBlock(maker, {-66, 14}, {20, 22}, kPlanks);
  AddBlock(maker, {-70, -60}, {70, -50}, kPlanks);
  const Point roof[] = {{-76, -112}, {0, -140}, {76, -112}};
  const Point eaves[] = {{-70, -106}, {0, -128}, {70, -106}};
  maker.AddBand(roof, eaves, kSteel);
  AddProps(
      maker, -60,
      std::array<Prop, 2>{{{Kind::kBigCrate, {-34, 0}, 1.8f}, {Kind::kSmallCrate, {-14, 0}, 2}}});
  AddProps(maker, 14, std::array<Prop, 1>{{{Kind::kBarrel, {-48, 0}, 1.6f}}});
}

void MakeCrates(MapMaker& maker) {
  AddBlock(maker, {-64, 40}, {64, 46}, kPlanks);
  AddProps(maker, 40,
           std::array<Prop, 9>{{{Kind::kBigCrate, {-42, 0}, 2.6f},
                                {Kind::kBigCrate, {-14, 0}, 2.6f},
                                {Kind::kBigCrate, {14, 0}, 2.6f},
                                {Kind::kBigCrate, {-28, 26}, 2.6f},
                                {Kind::kBigCrate, {0, 26}, 2.6f},
                                {Kind::kBigCrate, {-14, 52}, 2.6f},
                                {Kind::kSmallCrate, {22, 26}, 2.4f},
                                {Kind::kBarrel, {44, 0}, 2},
                                {Kind::kGarbage, {-30, 52}, 0.8f}}});
  maker.AddColliders(std::array<Ball, 6>{{{{-42, 27}, 26},
                                          {{-14, 27}, 26},
                                          {{14, 27}, 26},
                                          {{-28, 1}, 26},
                                          {{0, 1}, 26},
                                          {{-14, -25}, 26}}});
}

void MakePlatform(MapMaker& maker) {
  const Point surface[] = {{-120, -8}, {-84, -16}, {-40, -14}, {0, -20},
                           {46, -16},  {88, -18},  {120, -8}};
  maker.AddIsland(surface, 44, kMeadow);
  maker.AddStanding(std::array<Prop, 4>{{{Kind::kGrass, {-58, 0}, 0.6f},
                                         {Kind::kLongGrass, {10, 0}, 0.8f},
                                         {Kind::kStone, {62, -2}, 0.7f},
                                         {Kind::kSmallCrate, {-20, 0}, 2}}},
                    surface);
  maker.AddHanging(std::array<Prop, 3>{{{Kind::kLiana, {-66, 14}, 0.9f},
                                        {Kind::kLiana, {-20, 24}, 1.3f},
                                        {Kind::kLiana, {52, 18}, 1}}});
}

void MakeCaveArch(MapMaker& maker) {
  const Point outer[] = {{-190, 100}, {-176, 20}, {-140, -50}, {-76, -92}, {0, -104},
                         {84, -94},   {146, -44}, {176, 24},   {194, 100}};
  const Point inner[] = {{-116, 100}, {-122, 46}, {-98, 0},  {-52, -34}, {4, -44},
                         {58, -34},   {100, 4},   {118, 50}, {110, 100}};
  maker.AddBand(outer, inner, kRock);
  maker.AddHanging(std::array<Prop, 6>{{{Kind::kLiana, {-74, -22}, 1.4f},
                                        {Kind::kLiana, {-30, -40}, 1},
                                        {Kind::kLiana, {72, -28}, 1.6f},
                                        {Kind::kManyLianas, {-4, -46}, 1.1f},
                                        {Kind::kCeilingStuff, {36, -42}, 1},
                                        {Kind::kCeilingStuff, {-108, 8}, 0.9f}}});
  maker.AddStanding(
      std::array<Prop, 2>{{{Kind::kDarkGrass, {-30, 0}, 0.6f}, {Kind::kGrass, {40, 0}, 0.5f}}},
      outer);
}

void MakePillar(MapMaker& maker) {
  const Point shaftTop[] = {{-18, -76}, {18, -76}};
  const Point shaftFoot[] = {{-22, 76}, {22, 76}};
  const Point capital[] = {{-36, -100}, {36, -100}};
  const Point neck[] = {{-20, -76}, {20, -76}};
  const Point base[] = {{-24, 76}, {24, 76}};
  const Point plinth[] = {{-34, 88}, {34, 88}};
  maker.AddBand(capital, neck, kStonework);
  maker.AddBand(shaftTop, shaftFoot, kStonework);
  maker.AddBand(base, plinth, kStonework);
  AddBlock(maker, {-40, 88}, {40, 100}, kStonework);
}

void MakeTrench(MapMaker& maker) {
  const Point surface[] = {{-200, -28}, {-130, -34}, {-84, -36}, {-70, 26}, {0, 30},
                           {70, 26},    {84, -36},   {130, -34}, {200, -28}};
  const Point below[] = {{-200, -6}, {-140, -10}, {-106, -6}, {-92, 44}, {0, 52},
                         {92, 44},   {106, -6},   {140, -10}, {200, -6}};
  const Point bottom[] = {{-200, 70}, {-140, 70}, {-106, 70}, {-92, 70}, {0, 70},
                          {92, 70},   {106, 70},  {140, 70},  {200, 70}};
  maker.AddBand(surface, below, kEarth);
  maker.AddBand(below, bottom, {kEarth.deep, kEarth.deep});
  maker.AddStanding(std::array<Prop, 8>{{{Kind::kSandbags, {-104, 0}, 2},
                                         {Kind::kSandbags, {-100, 7}, 1.6f},
                                         {Kind::kSandbags, {104, 0}, 2},
                                         {Kind::kSandbags, {100, 7}, 1.6f},
                                         {Kind::kWoodenBoard, {-38, -2}, 1},
                                         {Kind::kSmallCrate, {40, 0}, 2},
                                         {Kind::kGrass, {-160, 0}, 0.6f},
                                         {Kind::kShortGrass, {164, 0}, 0.3f}}},
                    surface);
  maker.AddColliders(std::array<Ball, 2>{{{{-102, -42}, 24}, {{102, -42}, 24}}});
}

void MakeSandbags(MapMaker& maker) {
  const Point mound[] = {{-70, 30}, {-44, 20}, {0, 17}, {44, 20}, {70, 30}};
  const Point foot[] = {{-70, 36}, {-44, 36}, {0, 36}, {44, 36}, {70, 36}};
  maker.AddBand(mound, foot, kEarth);
  std::vector<Prop> bags;
  for (int row = 0; row < 5; ++row) {
    const int count = 3 - row / 2;
    for (int i = 0; i < count; ++i) {
      const float x = (static_cast<float>(i) - static_cast<float>(count - 1) / 2) * 27;
      bags.push_back(
          {Kind::kSandbags, {x + (row % 2 == 0 ? 0.0f : 5.0f), static_cast<float>(row) * 7}, 1.9f});
    }
  }
  const Point level[] = {{-100, 20}, {100, 20}};
  maker.AddStanding(bags, level);
  maker.AddColliders(std::array<Ball, 3>{{{{-26, 8}, 26}, {{26, 8}, 26}, {{0, -2}, 34}}});
}

void MakeTree(MapMaker& maker) {
  // One can walk through it.
  const Point left[] = {{-22, 130}, {-12, 104}, {-9, 50}, {-20, 6}};
  const Point right[] = {{24, 130}, {14, 104}, {10, 50}, {24, 4}};
  const Point crown[] = {{-104, 6}, {-98, -48}, {-60, -98}, {-4, -116}, {58, -102},
                         {98, -52}, {106, 2},   {64, 34},   {0, 22},    {-62, 38}};
  maker.AddBand(left, right, kTrunk, Matter::kPassable);
  maker.AddFan({0, -34}, crown, kLeaves, Matter::kPassable);
  maker.AddHanging(std::array<Prop, 3>{{{Kind::kLiana, {-70, 20}, 1.2f},
                                        {Kind::kLiana, {44, 16}, 1.5f},
                                        {Kind::kCeilingStuff, {68, 14}, 1}}});
}

struct Piece {
  const char* name;
  void (*make)(MapMaker&);
};

constexpr Piece kPieces[] = {
    {"Bunker", MakeBunker},      {"Bridge", MakeBridge},     {"Rope bridge", MakeRopeBridge},
    {"Stairs", MakeStairs},      {"Ramp", MakeRamp},         {"Tower", MakeTower},
    {"Crate stack", MakeCrates}, {"Platform", MakePlatform}, {"Cave arch", MakeCaveArch},
    {"Pillar", MakePillar},      {"Trench", MakeTrench},     {"Sandbag wall", MakeSandbags},
    {"Tree", MakeTree},
};

}  // namespace

std::vector<DataFile> MakePieces() {
  std::vector<DataFile> files;
  for (const Piece& piece : kPieces) {
    MapMaker maker(Color(0xFFFFFF), Color(0xFFFFFF));
    piece.make(maker);
    Selection nothing;
    PrepareForSave(maker.Map(), nothing);
    files.push_back({std::string("Prefab/") + piece.name + ".pre", WritePrefab(maker.Map())});
  }
  return files;
}

}  // namespace vesmora
