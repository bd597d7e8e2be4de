#include "document/map_diff.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "document/geometry.h"
#include "document/map_image.h"
#include "document/object_matching.h"
#include "document/record_changes.h"
#include "document/same_bytes.h"
#include "document/texture_mapping.h"
#include "document/waypoint_links.h"
#include "platform/single_byte_text.h"

namespace vesmora {
namespace {

using Differences = std::vector<Difference>;

constexpr float kSameOffset = 1e-3f;  // world units: what rounding leaves of a common move

WorldPoint OffsetBetween(WorldPoint from, WorldPoint to) { return {to.x - from.x, to.y - from.y}; }

bool IsAlmost(WorldPoint a, WorldPoint b) {
  return std::abs(a.x - b.x) <= kSameOffset && std::abs(a.y - b.y) <= kSameOffset;
}

// The record without what belongs to its slot or to other objects.
Polygon Bare(const Polygon& polygon) { return polygon; }
SpawnPoint Bare(const SpawnPoint& spawn) { return spawn; }
SceneryObject Bare(const SceneryObject& scenery) { return scenery; }
Collider Bare(Collider collider) {
  collider.authorChar = 0;
  return collider;
}
Waypoint Bare(Waypoint waypoint) {
  waypoint.id = 0;
  waypoint.connectionCount = 0;
  waypoint.connections.fill(0);
  return waypoint;
}

// The record as it is wherever it lies.
void Unplace(SpawnPoint& spawn) { spawn.x = spawn.y = spawn.ySign = 0; }
void Unplace(SceneryObject& scenery) { scenery.x = scenery.y = 0; }
void Unplace(Collider& collider) { collider.x = collider.y = 0; }
void Unplace(Waypoint& waypoint) { waypoint.x = waypoint.y = 0; }

template <typename Record>
bool IsMoved(const Record& before, const Record& after) {
  Record a = Bare(before);
  Record b = Bare(after);
  Unplace(a);
  Unplace(b);
  return HaveSameBytes(a, b);
}

/// All corners by one way, with their texture or without; edges and colours as they were.
bool IsShifted(const Polygon& before, const Polygon& after) {
  const WorldPoint offset = OffsetBetween(PlaceOf(before), PlaceOf(after));
  const WorldPoint textureOffset{offset.x / kTextureWidth, offset.y / kTextureHeight};
  for (std::size_t i = 0; i < before.vertices.size(); ++i) {
    const PolygonVertex& a = before.vertices[i];
    const PolygonVertex& b = after.vertices[i];
    const WorldPoint ofTexture = OffsetBetween({a.u, a.v}, {b.u, b.v});
    const bool texture = IsAlmost(ofTexture, {}) || IsAlmost(ofTexture, textureOffset);
    if (!texture || a.color != b.color || !HaveSameBytes(a.z, b.z) ||
        !HaveSameBytes(a.rhw, b.rhw) || !IsAlmost(OffsetBetween(PlaceOf(a), PlaceOf(b)), offset) ||
        IsPassable(before.edges[i]) != IsPassable(after.edges[i])) {
      return false;
    }
  }
  return true;
}

using CornerOrder = std::array<std::size_t, 3>;
constexpr CornerOrder kAsTheyAre = {0, 1, 2};

/// The polygon with its corners in another order. As at a save, z, rhw and alpha stay in their
/// places.
Polygon Turned(const Polygon& polygon, const CornerOrder& order) {
  Polygon turned = polygon;
  for (std::size_t i = 0; i < order.size(); ++i) {
    PolygonVertex& corner = turned.vertices[i];
    const PolygonVertex kept = std::exchange(corner, polygon.vertices[order[i]]);
    corner.z = kept.z;
    corner.rhw = kept.rhw;
    corner.color.alpha = kept.color.alpha;
  }
  return turned;
}

/// In which the corners have been put, of a polygon that was moved, turned or both.
std::optional<CornerOrder> NewOrder(const Polygon& before, const Polygon& after) {
  CornerOrder order = kAsTheyAre;
  do {
    if (IsShifted(Turned(before, order), after)) return order;
  } while (std::ranges::next_permutation(order).found);
  return std::nullopt;
}

bool IsMoved(const Polygon& before, const Polygon& after) {
  return NewOrder(before, after).has_value();
}

template <typename Record>
bool LieOnOneSpot(const Record& before, const Record& after) {
  return PlaceOf(before) == PlaceOf(after);
}
int SharedCorners(const Polygon& before, const Polygon& after) {
  int shared = 0;
  for (const PolygonVertex& a : before.vertices) {
    for (const PolygonVertex& b : after.vertices) {
      if (PlaceOf(a) != PlaceOf(b)) continue;
      ++shared;
      break;
    }
  }
  return shared;
}
bool LieOnOneSpot(const Polygon& before, const Polygon& after) {
  return SharedCorners(before, after) >= 2;
}

template <typename Record>
bool CoverEachOther(const Record& before, const Record& after) {
  return LieOnOneSpot(before, after);
}
/// Neighbours do not, although they lie on one spot.
bool CoverEachOther(const Polygon& before, const Polygon& after) {
  return SharedCorners(before, after) == 3;
}

template <typename TableType>
std::vector<std::string> KeysOf(const TableType& table) {
  std::vector<std::string> keys;
  for (const auto& record : table.Used()) {
    const auto bare = Bare(record);
    keys.emplace_back(reinterpret_cast<const char*>(&bare), sizeof(bare));
  }
  return keys;
}

template <typename TableType>
Matching MatchTables(const TableType& before, const TableType& after) {
  Matching matching(before.Count(), after.Count());
  PairByKey(matching, KeysOf(before), KeysOf(after));
  const auto isMoved = [&](int a, int b) { return IsMoved(before[a], after[b]); };
  const auto covers = [&](int a, int b) { return CoverEachOther(before[a], after[b]); };
  const auto isThere = [&](int a, int b) { return LieOnOneSpot(before[a], after[b]); };
  PairSameSlots(matching, isMoved);
  PairSameSlots(matching, covers);
  PairFirst(matching, covers);
  PairSameSlots(matching, isThere);
  PairFirst(matching, isThere);
  PairFirst(matching, isMoved);
  return matching;
}

template <typename Record>
Difference Compare(const Record& before, const Record& after) {
  Difference difference{.place = PlaceOf(after)};
  const auto changes = ChangesIn(before, after);
  if (changes.empty()) return difference;
  const WorldPoint from = PlaceOf(before);
  const WorldPoint offset = OffsetBetween(from, PlaceOf(after));
  if (!IsAlmost(offset, {}) && IsMoved(before, after)) {
    difference.kind = DifferenceKind::kMoved;
    difference.text = "from " + PlaceText(from) + " by " + PlaceText(offset);
  } else {
    difference.text = Joined(changes);
  }
  return difference;
}

/// Normals belong to their corners: of turned ones they are nothing of their own.
Difference Compare(const Polygon& before, const Polygon& after) {
  const CornerOrder order = NewOrder(before, after).value_or(kAsTheyAre);
  Difference difference = Compare<Polygon>(Turned(before, order), after);
  if (order == kAsTheyAre) return difference;
  const std::string way = difference.kind == DifferenceKind::kMoved ? difference.text + ", " : "";
  difference.text = way + "corners turned";
  return difference;
}

template <typename TableType>
void CompareTables(ObjectKind kind, const TableType& before, const TableType& after,
                   const Matching& matching, Differences& differences) {
  for (int slot = 0; slot < before.Count(); ++slot) {
    const int partner = matching.partnerOfBefore[static_cast<std::size_t>(slot)];
    if (partner < 0) {
      differences.push_back({.kind = DifferenceKind::kRemoved,
                             .before = {kind, slot},
                             .after = {kind},
                             .place = PlaceOf(before[slot])});
      continue;
    }
    Difference difference = Compare(before[slot], after[partner]);
    difference.before = {kind, slot};
    difference.after = {kind, partner};
    if (!difference.text.empty()) differences.push_back(std::move(difference));
  }
  for (int slot = 0; slot < after.Count(); ++slot) {
    if (matching.partnerOfAfter[static_cast<std::size_t>(slot)] >= 0) continue;
    differences.push_back({.kind = DifferenceKind::kAdded,
                           .before = {kind},
                           .after = {kind, slot},
                           .place = PlaceOf(after[slot])});
  }
  if (matching.KeepsOrder()) return;
  differences.push_back({.before = {kind}, .after = {kind}, .text = "the order of these objects"});
}

template <typename TableType>
void MatchAndCompare(ObjectKind kind, const TableType& before, const TableType& after,
                     Differences& differences) {
  CompareTables(kind, before, after, MatchTables(before, after), differences);
}

/// Where a waypoint leads, in numbers of the second map where its targets are still there; what is
/// gone is negative.
std::vector<std::int32_t> TranslatedTargets(const Waypoint& waypoint, const Matching& matching) {
  std::vector<std::int32_t> targets;
  for (const std::int32_t id : UsedConnections(waypoint)) {
    const bool isThere =
        id >= 1 && id <= static_cast<std::int32_t>(matching.partnerOfBefore.size());
    if (!isThere) {
      targets.push_back(id);
      continue;
    }
    const int partner = matching.partnerOfBefore[static_cast<std::size_t>(id - 1)];
    targets.push_back(partner < 0 ? -id : partner + 1);
  }
  return targets;
}

/// What is in `some` oftener than in `others`, in words behind `what`.
std::string Excess(std::vector<std::int32_t> some, const std::vector<std::int32_t>& others,
                   const std::string& what) {
  for (const std::int32_t id : others) {
    const auto found = std::ranges::find(some, id);
    if (found != some.end()) some.erase(found);
  }
  std::vector<std::string> numbers;
  numbers.reserve(some.size());
  for (const std::int32_t id : some) numbers.push_back(std::to_string(std::abs(std::int64_t{id})));
  return numbers.empty() ? std::string() : what + Joined(numbers);
}

std::string LinkChanges(const Waypoint& before, const Waypoint& after, const Matching& matching) {
  const auto old = TranslatedTargets(before, matching);
  const auto span = UsedConnections(after);
  const std::vector<std::int32_t> now(span.begin(), span.end());
  std::vector<std::string> changes;
  for (std::string& text :
       std::array{Excess(old, now, "leads no longer to "), Excess(now, old, "leads now to ")}) {
    if (!text.empty()) changes.push_back(std::move(text));
  }
  if (changes.empty() && old != now) changes.emplace_back("the order of its connections");
  return Joined(changes);
}

void CompareWaypoints(const MapDocument& before, const MapDocument& after,
                      Differences& differences) {
  const Matching matching = MatchTables(before.waypoints, after.waypoints);
  CompareTables(ObjectKind::kWaypoint, before.waypoints, after.waypoints, matching, differences);
  for (int slot = 0; slot < before.waypoints.Count(); ++slot) {
    const int partner = matching.partnerOfBefore[static_cast<std::size_t>(slot)];
    if (partner < 0) continue;
    const Waypoint& now = after.waypoints[partner];
    std::string text = LinkChanges(before.waypoints[slot], now, matching);
    if (text.empty()) continue;
    differences.push_back({.before = {ObjectKind::kWaypoint, slot},
                           .after = {ObjectKind::kWaypoint, partner},
                           .place = PlaceOf(now),
                           .text = std::move(text)});
  }
}

std::string TextOf(const TextureName& name) {
  return ToUtf8(std::string(name.begin(), std::ranges::find(name, '\0')));
}

void CompareProperties(const MapDocument& before, const MapDocument& after,
                       Differences& differences) {
  const auto say = [&](const std::string& what, const std::string& from, const std::string& to) {
    if (from == to) return;
    Difference difference{.text = what};
    difference.text.append(" from ").append(from).append(" to ").append(to);
    differences.push_back(std::move(difference));
  };
  const auto quoted = [](const std::string& text) { return "\"" + text + "\""; };
  say("author", quoted(ToUtf8(before.author)), quoted(ToUtf8(after.author)));
  say("texture", quoted(TextOf(before.texture)), quoted(TextOf(after.texture)));
  say("first background colour", ColorText(before.backgroundColor1),
      ColorText(after.backgroundColor1));
  say("second background colour", ColorText(before.backgroundColor2),
      ColorText(after.backgroundColor2));
  say("sector size", std::to_string(before.sectorDivision), std::to_string(after.sectorDivision));
  int sectors = 0;
  for (std::size_t i = 0; i < before.sectors.size(); ++i) {
    if (!HaveSameBytes(before.sectors[i], after.sectors[i])) ++sectors;
  }
  if (sectors > 0) {
    differences.push_back(
        {.text = "what stands in " + std::to_string(sectors) + " of the sectors"});
  }
}

bool CarriedBytesDiffer(const MapDocument& before, const MapDocument& after) {
  return before.looseByte1 != after.looseByte1 || before.looseByte2 != after.looseByte2 ||
         before.looseByte3 != after.looseByte3 || before.looseByte4 != after.looseByte4 ||
         before.looseByte5 != after.looseByte5 || before.block != after.block;
}

/// Whether anything but `randomId` differs.
bool FilesDiffer(const MapDocument& before, const MapDocument& after) {
  std::vector<std::byte> a(kMapFileSize);
  std::vector<std::byte> b(kMapFileSize);
  WriteMapImage(before, a);
  WriteMapImage(after, b);
  for (auto* image : {&a, &b}) {
    std::fill_n(image->begin() + kRandomIdOffset, sizeof(MapDocument::randomId), std::byte{});
  }
  return a != b;
}

}  // namespace

std::string_view NameOf(DifferenceKind kind) {
  switch (kind) {
    case DifferenceKind::kAdded:
      return "added";
    case DifferenceKind::kRemoved:
      return "removed";
    case DifferenceKind::kMoved:
      return "moved";
    case DifferenceKind::kChanged:
      break;
  }
  return "changed";
}

std::vector<Difference> CompareMaps(const MapDocument& before, const MapDocument& after) {
  Differences differences;
  CompareProperties(before, after, differences);
  MatchAndCompare(ObjectKind::kPolygon, before.polygons, after.polygons, differences);
  MatchAndCompare(ObjectKind::kSpawn, before.spawns, after.spawns, differences);
  MatchAndCompare(ObjectKind::kScenery, before.sceneries, after.sceneries, differences);
  MatchAndCompare(ObjectKind::kCollider, before.colliders, after.colliders, differences);
  CompareWaypoints(before, after, differences);
  if (CarriedBytesDiffer(before, after) || (differences.empty() && FilesDiffer(before, after))) {
    differences.push_back({.text = "bytes that belong to no object"});
  }
  return differences;
}

}  // namespace vesmora
